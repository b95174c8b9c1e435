"""Recipes for every game sound, built from sfx voices."""
import numpy as np

from sfx import voice as V, mix, drive, make_loop, RATE


def explosion(r):
    boom = V(r, 'noise', 900, 60, sustain=0.05, decay=1.1, punch=0.8, lpf=4000, lpf_end=300)
    thump = V(r, 'sine', 110, 38, sustain=0.04, decay=0.55, gain=1.2)
    crackle = V(r, 'noise', 3000, 1200, sustain=0.02, decay=0.35, gain=0.35, hpf=900)
    return drive(mix(boom, thump, crackle), 2.0)


def rocket_launch(r):
    whoosh = V(r, 'white', attack=0.02, sustain=0.1, decay=0.6, lpf=900, lpf_end=2800, hpf=200, gain=1.4)
    ign = V(r, 'noise', 700, 300, sustain=0.03, decay=0.25, punch=0.6, lpf=3000)
    tone = V(r, 'saw', 90, 140, sustain=0.05, decay=0.5, lpf=600, gain=0.4)
    return drive(mix(whoosh, ign, tone), 1.5)


def grenade_launch(r):
    thunk = V(r, 'sine', 180, 70, sustain=0.02, decay=0.18, punch=1.0, gain=1.2)
    pop = V(r, 'noise', 1600, 500, sustain=0.01, decay=0.12, lpf=2500)
    clack = V(r, 'square', 900, 700, sustain=0.005, decay=0.04, gain=0.3, delay=0.12, duty=0.3)
    return drive(mix(thunk, pop, clack), 1.6)


def grapple_fire(r):
    zip_ = V(r, 'saw', 300, 1400, sustain=0.05, decay=0.18, lpf=3500, gain=0.6)
    chain = V(r, 'noise', 4000, 2500, sustain=0.1, decay=0.12, hpf=1500, gain=0.5, repeat=0.03)
    return mix(zip_, chain)


def railgun(r):
    charge = V(r, 'sine', 2200, 300, sustain=0.02, decay=0.45, gain=0.6, vib_depth=0.03, vib_speed=40)
    zap = V(r, 'square', 1200, 80, sustain=0.03, decay=0.5, duty=0.2, duty_end=0.5, lpf=6000, lpf_end=800)
    hiss = V(r, 'white', sustain=0.02, decay=0.6, hpf=3000, gain=0.35)
    return drive(mix(charge, zap, hiss), 1.4)


def pistol(r):
    crack = V(r, 'noise', 2600, 900, sustain=0.01, decay=0.16, punch=1.0, lpf=6000, lpf_end=1500)
    body = V(r, 'sine', 220, 90, sustain=0.01, decay=0.1, gain=0.9)
    return drive(mix(crack, body), 2.0)


def door(r, opening):
    f0, f1 = (60, 90) if opening else (90, 55)
    motor = V(r, 'saw', f0, f1, attack=0.05, sustain=0.45, decay=0.2, lpf=500, gain=0.7, vib_depth=0.02, vib_speed=9)
    hiss = V(r, 'white', attack=0.02, sustain=0.1, decay=0.3, hpf=2500, gain=0.25)
    clunk = V(r, 'sine', 120, 50, sustain=0.01, decay=0.15, gain=1.0, delay=0.62 if opening else 0.0)
    return mix(motor, hiss, clunk)


def chaingun(r):
    crack = V(r, 'noise', 2000, 700, sustain=0.008, decay=0.09, punch=1.0, lpf=5000)
    body = V(r, 'square', 160, 70, sustain=0.005, decay=0.07, duty=0.35, lpf=1200, gain=0.6)
    return drive(mix(crack, body), 2.0)


def weapon_switch(r):
    a = V(r, 'square', 1800, 1500, sustain=0.004, decay=0.03, duty=0.3, gain=0.5, hpf=400)
    b = V(r, 'noise', 3000, 2000, sustain=0.004, decay=0.05, gain=0.6, delay=0.07, lpf=5000)
    c = V(r, 'sine', 300, 200, sustain=0.01, decay=0.05, gain=0.5, delay=0.07)
    return mix(a, b, c)


def empty_click(r):
    return mix(V(r, 'square', 2400, 2000, sustain=0.003, decay=0.025, duty=0.25, hpf=600),
               V(r, 'noise', 5000, 3000, sustain=0.002, decay=0.02, gain=0.4))


def splash(r):
    body = V(r, 'white', attack=0.005, sustain=0.05, decay=0.5, lpf=2500, lpf_end=600, hpf=150, gain=1.2)
    drops = mix(*[V(r, 'sine', f, f * 1.8, sustain=0.005, decay=0.05, gain=0.25, delay=d)
                  for f, d in ((900, 0.08), (1300, 0.15), (700, 0.22), (1600, 0.3))])
    return mix(body, drops)


def bounce(r, pitch):
    return mix(V(r, 'sine', pitch, pitch * 0.6, sustain=0.005, decay=0.12, punch=1.0, gain=1.0),
               V(r, 'square', pitch * 3.1, pitch * 2.5, sustain=0.003, decay=0.05, duty=0.4, gain=0.25, lpf=3000))


def ammo_pickup(r):
    a = V(r, 'noise', 2500, 1800, sustain=0.01, decay=0.06, gain=0.7, lpf=6000)
    b = V(r, 'noise', 2000, 1500, sustain=0.01, decay=0.08, gain=0.7, delay=0.09, lpf=5000)
    c = V(r, 'square', 880, None, sustain=0.02, decay=0.1, duty=0.25, gain=0.25, delay=0.09, lpf=4000)
    return mix(a, b, c)


def respawn(r):
    rise = V(r, 'sine', 300, 1800, attack=0.05, sustain=0.25, decay=0.35, vib_depth=0.05, vib_speed=14, gain=0.8)
    shimmer = V(r, 'square', 1200, 2400, attack=0.1, sustain=0.2, decay=0.35, duty=0.2, gain=0.2, lpf=5000,
                repeat=0.06)
    return mix(rise, shimmer)


def armour_pickup(r):
    clank = V(r, 'square', 420, 380, sustain=0.02, decay=0.25, duty=0.45, lpf=2500, gain=0.6)
    ring = V(r, 'sine', 1250, None, sustain=0.01, decay=0.5, gain=0.35, vib_depth=0.004, vib_speed=6)
    ring2 = V(r, 'sine', 1873, None, sustain=0.01, decay=0.35, gain=0.2)
    return mix(clank, ring, ring2)


def weapon_pickup(r):
    cock = mix(V(r, 'noise', 2200, 1500, sustain=0.01, decay=0.07, lpf=5000),
               V(r, 'noise', 1600, 900, sustain=0.02, decay=0.12, delay=0.14, lpf=4000, gain=1.1),
               V(r, 'sine', 160, 90, sustain=0.01, decay=0.12, delay=0.14, gain=0.8))
    jingle = V(r, 'square', 523, None, sustain=0.05, decay=0.2, duty=0.25, arp_time=0.07, arp_ratio=1.5,
               gain=0.3, delay=0.25, lpf=3000)
    return mix(cock, jingle)


def health_pickup(r):
    return mix(V(r, 'sine', 523, None, sustain=0.06, decay=0.2, arp_time=0.06, arp_ratio=1.26, gain=0.8),
               V(r, 'sine', 784, None, sustain=0.05, decay=0.25, gain=0.6, delay=0.12),
               V(r, 'tri', 1046, None, sustain=0.03, decay=0.3, gain=0.3, delay=0.12))


def teleport(r):
    sweep = V(r, 'saw', 200, 2400, attack=0.02, sustain=0.2, decay=0.35, lpf=1500, lpf_end=6000, gain=0.5,
              vib_depth=0.08, vib_speed=22)
    sparkle = V(r, 'noise', 6000, 9000, attack=0.05, sustain=0.15, decay=0.3, hpf=3000, gain=0.3)
    sub = V(r, 'sine', 90, 180, attack=0.02, sustain=0.15, decay=0.35, gain=0.6)
    return mix(sweep, sparkle, sub)


def grapple_attach(r):
    return mix(V(r, 'noise', 3000, 1500, sustain=0.005, decay=0.06, punch=1.0, lpf=7000),
               V(r, 'square', 1400, 1300, sustain=0.01, decay=0.15, duty=0.2, gain=0.3, lpf=4000),
               V(r, 'sine', 200, 120, sustain=0.005, decay=0.08, gain=0.7))


def shotgun(r):
    blast = V(r, 'noise', 1500, 250, sustain=0.02, decay=0.45, punch=1.0, lpf=5000, lpf_end=500)
    boom = V(r, 'sine', 130, 45, sustain=0.02, decay=0.3, gain=1.2)
    return drive(mix(blast, boom), 2.2)


def lightning_loop(r):
    dur = 1.0
    buzz = V(r, 'saw', 110, None, sustain=dur + 0.1, decay=0.0, lpf=2500, gain=0.35, vib_depth=0.02, vib_speed=7)
    buzz2 = V(r, 'square', 220.5, None, sustain=dur + 0.1, decay=0.0, duty=0.15, lpf=3000, gain=0.2)
    crack = V(r, 'noise', 5000, None, sustain=dur + 0.1, decay=0.0, hpf=1500, gain=0.5)
    gate = (r.random(int((dur + 0.1) * RATE) // 441 + 1) > 0.55).repeat(441)[:len(crack)]
    gate = np.convolve(gate.astype(float), np.ones(64) / 64, 'same')
    return make_loop(mix(buzz, buzz2, crack * gate), 0.1)


def plasma(r):
    return mix(V(r, 'square', 1100, 350, sustain=0.01, decay=0.14, duty=0.5, duty_end=0.1, lpf=5000, gain=0.7),
               V(r, 'sine', 600, 200, sustain=0.01, decay=0.1, gain=0.6))


def cash(r):
    return mix(V(r, 'square', 988, None, sustain=0.04, decay=0.25, duty=0.5, arp_time=0.05, arp_ratio=1.335,
                 lpf=6000, gain=0.5),
               V(r, 'sine', 1976, None, sustain=0.02, decay=0.3, gain=0.25, delay=0.05))


def powerup(r):
    notes = [392, 494, 587, 784]
    return mix(*[V(r, 'square', f, None, sustain=0.05, decay=0.12 if i < 3 else 0.5, duty=0.3, lpf=4000,
                   gain=0.45, delay=i * 0.08, vib_depth=0.01 if i == 3 else 0, vib_speed=6)
                 for i, f in enumerate(notes)],
               V(r, 'sine', 196, 392, attack=0.05, sustain=0.2, decay=0.4, gain=0.5))


def quad_fire(r):
    return drive(mix(V(r, 'saw', 70, 55, sustain=0.05, decay=0.3, lpf=900, gain=1.0),
                     V(r, 'square', 140, 110, sustain=0.05, decay=0.3, duty=0.2, lpf=1600, gain=0.5)), 2.0)


def quad_expire(r):
    return mix(V(r, 'square', 784, 196, sustain=0.1, decay=0.4, duty=0.3, lpf=3500, gain=0.45),
               V(r, 'sine', 392, 98, sustain=0.1, decay=0.45, gain=0.5))


def jump_pad(r):
    return mix(V(r, 'sine', 150, 700, sustain=0.05, decay=0.3, punch=0.5, gain=0.9),
               V(r, 'square', 300, 1400, sustain=0.05, decay=0.25, duty=0.4, lpf=3000, gain=0.25),
               V(r, 'white', sustain=0.02, decay=0.25, hpf=2000, lpf=7000, gain=0.25))


def megahealth(r):
    chord = [523, 659, 784, 1046]
    return mix(*[V(r, 'sine', f, None, attack=0.01, sustain=0.2, decay=0.7, gain=0.4, delay=i * 0.05,
                   vib_depth=0.006, vib_speed=5) for i, f in enumerate(chord)],
               V(r, 'tri', 261, None, attack=0.02, sustain=0.3, decay=0.6, gain=0.4))


def upgrade(r):
    notes = [523, 659, 784, 1046, 1318]
    return mix(*[V(r, 'square', f, None, sustain=0.06, decay=0.1 if i < 4 else 0.6, duty=0.25, lpf=5000,
                   gain=0.4, delay=i * 0.07) for i, f in enumerate(notes)],
               V(r, 'tri', 1318, None, sustain=0.2, decay=0.6, gain=0.3, delay=0.28, vib_depth=0.01, vib_speed=7))


def alert(r):
    return mix(V(r, 'square', 880, None, sustain=0.06, decay=0.04, duty=0.5, lpf=3500, gain=0.45),
               V(r, 'square', 1175, None, sustain=0.08, decay=0.1, duty=0.5, lpf=3500, gain=0.45, delay=0.11))


def hum_loop(r):
    dur = 1.0
    h = mix(V(r, 'saw', 60, None, sustain=dur + 0.1, decay=0.0, lpf=700, gain=0.6),
            V(r, 'sine', 120, None, sustain=dur + 0.1, decay=0.0, gain=0.4, vib_depth=0.003, vib_speed=3),
            V(r, 'white', sustain=dur + 0.1, decay=0.0, hpf=4000, gain=0.05))
    return make_loop(h, 0.1)


def switch(r):
    return mix(V(r, 'noise', 2000, 1200, sustain=0.005, decay=0.05, punch=1.0, lpf=5000),
               V(r, 'sine', 240, 160, sustain=0.01, decay=0.08, gain=0.9),
               V(r, 'square', 1600, None, sustain=0.02, decay=0.06, duty=0.25, gain=0.25, delay=0.06, lpf=4000))


def plasma_pistol(r):
    return mix(V(r, 'square', 1600, 500, sustain=0.01, decay=0.12, duty=0.3, lpf=6000, gain=0.6),
               V(r, 'sine', 900, 300, sustain=0.01, decay=0.12, gain=0.5))


def plasma_hit(r):
    return mix(V(r, 'noise', 3000, 800, sustain=0.01, decay=0.18, lpf=6000, gain=0.7),
               V(r, 'sine', 500, 150, sustain=0.01, decay=0.15, gain=0.6))


def melee(r):
    swish = V(r, 'white', attack=0.03, sustain=0.03, decay=0.12, lpf=1200, lpf_end=4000, hpf=400, gain=1.3)
    thud = V(r, 'sine', 140, 70, sustain=0.01, decay=0.1, gain=0.9, delay=0.08)
    return mix(swish, thud)


def zap(r):
    return drive(mix(V(r, 'noise', 6000, 2000, sustain=0.05, decay=0.15, hpf=800, gain=0.8),
                     V(r, 'saw', 120, 100, sustain=0.05, decay=0.15, lpf=2500, gain=0.6),
                     V(r, 'square', 2400, 600, sustain=0.02, decay=0.12, duty=0.15, gain=0.3)), 1.8)


def grid_on(r):
    return mix(V(r, 'saw', 40, 120, attack=0.02, sustain=0.2, decay=0.25, lpf=1500, gain=0.7),
               V(r, 'noise', 4000, None, sustain=0.02, decay=0.15, hpf=2000, gain=0.4))


def grid_off(r):
    return mix(V(r, 'saw', 120, 30, sustain=0.1, decay=0.35, lpf=1200, lpf_end=300, gain=0.7),
               V(r, 'noise', 3000, None, sustain=0.01, decay=0.08, hpf=2000, gain=0.3))


def egg_crack(r):
    return mix(*[V(r, 'noise', 2500 - i * 400, 900, sustain=0.005, decay=0.04, lpf=5000, gain=0.8, delay=d)
                 for i, d in enumerate((0.0, 0.07, 0.11, 0.2))],
               V(r, 'sine', 300, 200, sustain=0.01, decay=0.1, gain=0.4))


def hatch(r):
    squelch = V(r, 'white', attack=0.02, sustain=0.1, decay=0.3, lpf=600, lpf_end=1500, gain=1.2,
                vib_depth=0.0)
    chirps = mix(*[V(r, 'square', f, f * 1.5, sustain=0.02, decay=0.06, duty=0.2, lpf=4000, gain=0.25, delay=d)
                   for f, d in ((1400, 0.15), (1700, 0.22), (1250, 0.3), (1900, 0.36), (1500, 0.43))])
    return mix(squelch, chirps)


def repair(r):
    weld = V(r, 'noise', 7000, None, attack=0.02, sustain=0.3, decay=0.15, hpf=2500, gain=0.5,
             vib_depth=0.3, vib_speed=30)
    clank = mix(*[V(r, 'square', 700, 650, sustain=0.005, decay=0.08, duty=0.4, lpf=3000, gain=0.4, delay=d)
                  for d in (0.0, 0.25)])
    return mix(weld, clank)


def squelch_split(r):
    return mix(V(r, 'white', attack=0.01, sustain=0.05, decay=0.2, lpf=500, lpf_end=2000, gain=1.2),
               V(r, 'sine', 300, 600, sustain=0.05, decay=0.15, gain=0.5))


# Pause and GUI sounds.
def pause_on(r):
    return mix(V(r, 'sine', 440, None, sustain=0.05, decay=0.15, gain=0.6),
               V(r, 'sine', 880, None, sustain=0.05, decay=0.25, gain=0.6, delay=0.08))


def pause_off(r):
    return mix(V(r, 'sine', 880, None, sustain=0.05, decay=0.15, gain=0.6),
               V(r, 'sine', 440, None, sustain=0.05, decay=0.25, gain=0.6, delay=0.08))


def mouse_tick(r):
    return V(r, 'square', 2200, 1800, sustain=0.003, decay=0.02, duty=0.3, lpf=6000)


def mouse_square(r):
    return V(r, 'square', 660, None, sustain=0.02, decay=0.05, duty=0.5, lpf=3000)


def sine_hear(r):
    return mix(V(r, 'sine', 660, 990, sustain=0.06, decay=0.25, gain=0.6),
               V(r, 'sine', 1320, 1980, sustain=0.03, decay=0.2, gain=0.25))


def menu_close(r):
    return mix(V(r, 'sine', 880, 330, sustain=0.03, decay=0.2, gain=0.6),
               V(r, 'white', sustain=0.01, decay=0.15, lpf=3000, lpf_end=600, gain=0.3))


def test_jingle(r):
    """A short bright phrase for checking the audio device."""
    seq = [(523, 0.0), (659, 0.18), (784, 0.36), (1046, 0.54), (784, 0.9), (1046, 1.08)]
    lead = mix(*[V(r, 'square', f, None, sustain=0.12, decay=0.25, duty=0.3, lpf=3500, gain=0.35, delay=d)
                 for f, d in seq])
    bass = mix(*[V(r, 'tri', f, None, sustain=0.3, decay=0.2, gain=0.5, delay=d)
                 for f, d in ((131, 0.0), (175, 0.54), (196, 0.9))])
    pad = V(r, 'saw', 262, None, attack=0.3, sustain=0.9, decay=0.8, lpf=900, gain=0.2, vib_depth=0.004,
            vib_speed=5)
    return mix(lead, bass, pad)
