#!/usr/bin/env python3
"""Writes Act 2 of the adventure: maps/signalhouse.xml (the signal tower,
climbed by hook under sniper drones), maps/foundrygates.xml (the gate yard,
held against waves until the gate winch is up), maps/foundryfloor.xml
(shuttles over molten metal, a battery for the blast door, drop hammers
and the casting hall) and maps/blockyard.xml (the block boss's yard).
Re-run after editing; the output is committed.

  python3 tools/maps/act2.py            # writes into maps/
"""
import os
import sys

from enemies import enemy
from places import MATERIALS, Place

GATE_WAVES = 'maps/foundrygates_waves.xml'

# Act 2's palettes: the signal house's concrete, the foundry's metal.
MATERIALS.update({
    'signal': {'ground': 'rock2', 'top': 'concrete2', 'wall': 'concrete2', 'ceiling': 'concrete1',
               'beam': 'metal1', 'deck': 'grate1', 'back': 'concrete1', 'trim': 'hazard1'},
    'foundry': {'ground': 'rock2', 'top': 'metal2', 'wall': 'metal1', 'ceiling': 'metal2',
                'beam': 'metal1', 'deck': 'grate1', 'back': 'techpanel2', 'trim': 'hazard1'},
})


def signalhouse():
    """The signal house: a loft to learn the hook climb on, a shaft of
    alternating landings with sniper drones across it, a timed grid below
    the top floor, and the roof with the signal mast whose switch opens the
    way on.

    The climbing rule throughout: a beam hangs 96 above a deck, just past
    its open edge, so the hook pulls the player straight up beside the deck
    (never into its underside) and the fall back leaves time to steer on."""
    lv = Place('signalhouse', 'signal')
    lv.title = 'The Signal House'
    lv.sky('night,haze', 'night', music='foundry')
    lv.bookends(-400, 2600, bottom=-480, top=2200)
    H = 224
    ROOF = 1064

    def climb_beam(x0, deck_y, hang_to, rise=96):
        lv.beam(x0, x0 + 40, deck_y + rise)
        lv.detail(x0 + 16, deck_y + rise + 16, x0 + 24, hang_to, 'metal1')

    # The ground floor: closed to the west, the shaft through a doorway east.
    lv.room(0, 600, 0, H, doors=(0, 160))
    lv.backdrop(600, 0, 632, 160)
    lv.spawn(40, 8)
    lv.sign(40, 180, 'SIGNAL HOUSE - GROUND FLOOR', 12)
    lv.lamp(120, H - 6, 96)
    lv.lamp(470, H - 6, 96)
    lv.pickup('health', 140, 0)

    # Beat one: the loft, too high to jump, a beam beside it. A miss
    # drops back on the floor.
    lv.ledge(300, 460, 120, hang=H)
    climb_beam(256, 120, H, rise=64)   # under the ceiling; short, and the fall is safe
    lv.message(180, 0, 'Too high to jump: stand under the beam, hold $bind{+fire 1} to hook it, '
               'let go and steer on to the loft', width=40, height=96)
    lv.weapon('grenadelauncher', 360, 120, 10)
    lv.cash(420, 120)
    lv.pickup('armour', 440, 120)
    lv.message(310, 120, 'Grenade launcher: $bind{useitem grenadelauncher}. Grenades bounce over parapets',
               width=40)

    # The shaft: east decks at 200 and 600, west decks at 400 and 800, a
    # climbing beam beside each. A fall lands on a lower deck, never outside.
    west, east = 632, 1120
    lv.ground(west, east, 0)
    lv.backdrop(west, 0, east, 1000)
    lv.block(-32, 288, 632, 400)
    lv.block(-32, 400, 520, 464)         # the niche off the second landing
    lv.block(-32, 464, 632, 1000)
    lv.backdrop(520, 400, 632, 464)
    lv.block(east, 0, 2600, 1000)
    lv.block(-400, -480, -32, 1000)
    lv.block(east, -480, 2600, 0, 'ground')
    decks = [(880, east, 200), (west, 872, 400), (880, east, 600), (west, 872, 800)]
    for x0, x1, y in decks:
        lv.ledge(x0, x1, y, kind='deck')
        lv.hazard_strip(x0, x1, y, 2)
        lv.lamp(x0 + 40 if x0 == west else x1 - 104, y + 170, 64)
    for x0, y in ((836, 200), (876, 400), (836, 600), (876, 800)):
        climb_beam(x0, y, y + 184 if y < 800 else 1000)
    lv.checkpoint(660, 0)
    lv.spawn(700, 8, 'shaft')
    lv.message(640, 0, 'Climb the signal tower: hook each beam, land on the deck beside it', width=40,
               height=96)
    lv.sign(660, 120, 'THE SHAFT', 12)

    # Beat two: the first landings, one sniper drone across the shaft.
    lv.pickup('grenadelauncherammo', 1000, 200, 20, attributes={'ammo': '10'})
    lv.grunt('sniper', 1090, 290, 2)   # meets the player on the first deck, not at the beam
    lv.message(1040, 200, 'Sniper drone: its aim line shows before it fires', width=40)
    lv.pickup('health', 700, 400)
    lv.checkpoint(650, 400)
    lv.cash(560, 400, 25)
    lv.lamp(540, 456, 48)

    # Beat three: mines on the third landing, a timed grid across the shaft
    # under the fourth.
    for x in (1010, 1060):
        lv.body('proxygrenade', x, 600, x + 16, 616, 'data/images/proxygrenade.png', mass=10, entity=True,
                outlined=False, tile=False)
    lv.pickup('quickarmour', 1092, 600)
    lv.message(890, 600, 'Mines: set them off from afar with a grenade', width=40)
    lv.grid(west, 744, east, 752, pain=15, timeon=1600, timeoff=1400)
    lv.effect(700, 748, 'electricsparks')
    lv.sound(880, 748, 'world/hum.wav', 60)
    lv.grunt('plasmagrunt', 760, 660, 2)
    lv.pickup('health', 660, 800)
    lv.checkpoint(720, 800)
    lv.spawn(680, 808, 'top')

    # Beat four: the roof. A hatch over the top deck, a gantry beside it.
    # The hatch: a gantry high over it, so the pull up leaves time to steer
    # on to the roof either side.
    lv.block(-400, 1000, 840, ROOF, 'ceiling')
    lv.block(940, 1000, 2600, ROOF, 'ceiling')
    lv.backdrop(840, 1000, 940, ROOF)
    lv.hazard_strip(-400, 840, ROOF, 4)
    lv.hazard_strip(940, 2000, ROOF, 4)
    lv.beam(826, 954, 1200)
    for x in (826, 946):
        lv.detail(x, ROOF, x + 8, 1200, 'metal1')
    lv.message(700, 800, 'Out through the hatch: hook the gantry high above it', width=40)
    lv.spawn(1200, ROOF + 8, 'roof')
    lv.message(1140, ROOF, 'The roof. The lamp switch at the top of the mast opens the signal room',
               width=40, height=96)
    lv.pickup('quickhealth', 1240, ROOF)
    lv.pickup('armour', 160, ROOF)
    lv.cash(60, ROOF, 25)
    lv.crate(100, ROOF, 32, mass=0)
    lv.grunt('sniper', 1800, 1140, 3)

    # The mast: three held decks up to the lamp, a climbing beam beside each.
    lv.detail(1496, ROOF, 1512, 1660, 'metal1')
    for x0, x1, y in ((1380, 1500, 1220), (1508, 1628, 1380), (1380, 1500, 1540)):
        lv.ledge(x0, x1, y, hang=1660)
    climb_beam(1504, ROOF + 156, 1380)
    climb_beam(1464, 1380, 1540)
    climb_beam(1504, 1540, 1660)
    lv.block(1360, 1660, 1660, 1676, 'beam')
    lv.turret(1600, 1380)
    lv.switch(1400, 1540, 'lamp_group')
    lv.hidden('targetgroup', 1460, 1560, 'lamp_group', targets='signal_door,lamp_msg,lamp_light')
    lv.hidden('messengerbody', 1470, 1560, 'lamp_msg',
              attributes={'message': 'The signal lamp burns: the room below opens'})
    lv.hidden('particlesystembody', 1440, 1600, 'lamp_light', attributes={'systemid': 'fire', 'on': 'false'})
    lv.body('detail', 1420, 1600, 1480, 1624, 'data/images/hazard1.png', solid=False, tile=False, outlined=False,
            colour='255,90,60,255', attributes={'glow': 'true'})
    lv.cash(1460, 1540, 25)

    # The signal room, east of the roof: a door at its foot, the gantry on.
    lv.block(2000, 1200, 2600, 2200, 'wall')
    lv.door('signal_door', 2000, ROOF, 2032, 1200, lift=120, speed=60)
    lv.backdrop(2032, ROOF, 2600, 1200)
    lv.lamp(2200, 1194, 96)
    lv.sign(2080, 1150, 'TO THE FOUNDRY GATES', 12)
    lv.pickup('grenadelauncherammo', 2100, ROOF, 20, attributes={'ammo': '10'})
    lv.pickup('health', 2140, ROOF)
    # The gates cut scene carries the player on to the foundry gates.
    lv.exit(2480, ROOF, 'foundrygates', 'brindlequay/gates')
    return lv


def foundrygates():
    """The gate yard: the guard hut with the rocket launcher and a gate bot,
    a search light over the road, then the yard held against waves while the
    gate winch turns."""
    lv = Place('foundrygates', 'foundry')
    lv.title = 'The Foundry Gates'
    lv.sky('haze,night', 'haze', music='foundry')
    lv.bookends(-400, 3000, bottom=-480, top=1400)
    lv.ground(-400, 3000, 0)

    # The guard hut by the road.
    lv.room(80, 400, 0, 160, doors=(96, 96))
    lv.spawn(-340, 8)
    lv.sign(-360, 120, 'THE GATE ROAD', 12)
    lv.spawn(120, 8, 'hut')
    lv.sign(100, 130, 'GATE GUARD', 12)
    lv.lamp(200, 154, 96)
    lv.weapon('rocketlauncher', 240, 0, 10)
    lv.pickup('rocketlauncherammo', 280, 0, 20, attributes={'ammo': '10'})
    lv.message(160, 0, 'Rocket launcher: $bind{useitem rocketlauncher}. Keep your distance from the blast', width=40)
    # Outside the hut, small enough to hop: it follows a few steps behind.
    lv.enemy('friendly', 470, 24, 2, 'friendly', size=20, mass=10)
    lv.message(420, 0, 'The gate bot fights with you', width=32)

    # Beat one: the road under a search light; spotted, the hatch lets
    # kamikazes out. Barrels burst in a blast.
    lv.detail(700, 0, 708, 290, 'metal1')
    lv.block(672, 290, 736, 302, 'beam')
    lv.body('searchlight', 688, 258, 720, 290, 'data/images/searchlight.png', entity=True, mass=0, outlined=False,
            tile=False, idname='road_light', targets='road_alarm,road_hatch',
            attributes={'startangle': '0', 'endangle': '40', 'minangle': '-40', 'speed': '25',
                        'conewidth': '50', 'conelength': '280', 'untriggertimer': '6000', 'timepaused': '900'})
    lv.hidden('messengerbody', 700, 320, 'road_alarm', attributes={'message': 'Spotted! A hatch opens on the wall'})
    lv.hidden('spawner', 960, 240, 'road_hatch',
              attributes={'spawnedtype': 'kamikazegrunt', 'spawnlevel': '2', 'maxalive': '1', 'maxspawned': '2',
                          'spawndelay': '3000'})
    lv.block(930, 220, 1000, 232, 'deck')
    lv.detail(960, 0, 968, 220, 'metal1')
    lv.message(520, 0, 'Search light: keep out of its beam', width=32)
    for x in (860, 884, 872):
        lv.barrel(x, 0 if x != 872 else 28)
    lv.enemy('kamikazegrunt', 900, 60, 1, 'kamikazeenemy1')
    lv.pickup('health', 1040, 0)
    lv.checkpoint(1100, 0)
    lv.spawn(1140, 8, 'yard')

    # The yard: the foundry wall to the east with the gate at its foot,
    # a wall walk reached by a pad, hatches on the wall and on a crane beam.
    lv.block(2400, 160, 3000, 200, 'wall')
    lv.block(2400, 330, 3000, 900, 'wall')
    lv.door('gate', 2400, 0, 2432, 160, lift=150, speed=40)
    lv.backdrop(2432, 0, 3000, 160)
    lv.hazard_strip(2400, 2432, 160, 6)
    lv.sign(2200, 260, 'FOUNDRY GATE', 14)
    for x in (2600, 2800):
        lv.detail(x, 900, x + 48, 1200, 'metal1')
        lv.effect(x + 24, 1200, 'smoke')
    # The wall walk and the kennel behind its shutter.
    # The walk stops short of the wall: the way down to the winch, walled in
    # until the locker opens through to the yard.
    lv.block(1940, 184, 2336, 200, 'deck')
    for x in (1960, 2380):
        lv.detail(x, 0, x + 8, 184, 'metal1')
    lv.jumppad(1780, 0, (60, 220))
    lv.message(1700, 0, 'A pad throws you up to the wall walk', width=32)
    lv.alphadoor('kennel', 2400, 200, 2416, 330)
    lv.backdrop(2416, 200, 2560, 330)
    lv.block(2560, 200, 3000, 330, 'wall')
    lv.enemy('spawnergrunt', 2480, 260, 2, 'spawnerenemy1', size=32,
             attributes={'spawntype': 'meleegrunt', 'spawnlevel': '2', 'maxalive': '2', 'spawndelay': '4000'})
    lv.enemy('egglayer', 2530, 290, 1, 'egglayerenemy1', size=32,
             attributes={'spawnlevel': '1', 'maxalive': '2', 'spawndelay': '6000'})
    # The crane beam over the yard.
    lv.detail(1396, 0, 1412, 300, 'metal1')
    lv.block(1300, 300, 1700, 320, 'beam')
    lv.block(1500, 280, 1560, 300, 'deck')

    # The supply locker under the wall walk. It opens at both ends: into the
    # yard, and into the winch bay where the player is holding out.
    lv.block(2040, 120, 2256, 184, 'wall')
    lv.alphadoor('locker', 2040, 0, 2056, 120, texture='techpanel2')
    lv.alphadoor('locker_bay', 2224, 0, 2256, 120, texture='techpanel2')
    lv.backdrop(2056, 0, 2224, 120)
    lv.pickup('armour', 2080, 0)
    lv.pickup('health', 2120, 0)
    lv.pickup('rocketlauncherammo', 2160, 0, 20, attributes={'ammo': '10'})
    lv.pickup('grenadelauncherammo', 2190, 0, 20, attributes={'ammo': '10'})

    # Beat two to four: the winch switch starts the waves.
    lv.switch(2360, 0, 'winch')
    lv.spawn(2300, 8, 'winch')
    lv.lamp(2340, 60, 48)
    lv.message(2280, 0, 'The gate winch: walk into its switch, then hold the yard until the gate is up', width=32,
               height=96)
    lv.hidden('targetgroup', 2340, 100, 'winch', targets='waves,winch_msg')
    lv.hidden('messengerbody', 2350, 100, 'winch_msg',
              attributes={'message': 'The winch grinds. The foundry sends its guards: hold the yard'})
    lv.hidden('wavecontroller', 2360, 100, 'waves', attributes={'wavefile': GATE_WAVES})
    hatches = [('hatch_a', 2330, 110, 'meleegrunt', 3, 3), ('hatch_b', 1530, 250, 'plasmagrunt', 2, 2),
               ('hatch_c', 1340, 250, 'shotgungrunt', 2, 3), ('hatch_d', 1530, 250, 'kamikazegrunt', 2, 3),
               ('hatch_e', 2330, 110, 'rocketgrunt', 1, 2), ('hatch_f', 1340, 250, 'chaingungrunt', 2, 2)]
    for idname, x, y, kind, level, count in hatches:
        lv.hidden('spawner', x, y, idname, attributes={'spawnedtype': kind, 'spawnlevel': str(level),
                                                       'maxalive': '2', 'maxspawned': str(count),
                                                       'spawndelay': '3000'})
    lv.block(2384, 96, 2400, 140, 'trim')
    lv.lamp(2330, 150, 48)
    lv.block(1310, 280, 1370, 300, 'deck')
    lv.lamp(1318, 274, 48)
    for idname, text in (('wave2_msg', 'Shotgun drones from the crane'),
                         ('locker_msg', 'The supply locker by the winch is open'),
                         ('wave3_msg', 'The kennel shutter is up!'),
                         ('wave4_msg', 'Last wave: heavy guns'),
                         ('gate_msg', 'The gate is up: into the foundry')):
        lv.hidden('messengerbody', 2380, 120, idname, attributes={'message': text})
    lv.hidden('particlesystembody', 2416, 100, 'gate_steam', attributes={'systemid': 'steam', 'on': 'false'})
    lv.pickup('health', 1300, 0)
    lv.pickup('health', 1960, 200)
    lv.pickup('chaingunammo', 1700, 0, 20, attributes={'ammo': '60'})
    lv.pickup('shotgunammo', 1740, 0, 20, attributes={'ammo': '12'})
    lv.pickup('plasmagunammo', 1640, 0, 20, attributes={'ammo': '40'})
    lv.cash(1530, 320, 25)
    lv.cash(2040, 200)

    # Through the gate: the foundry's entrance and the way on.
    lv.lamp(2600, 150, 96)
    lv.sign(2660, 120, 'FOUNDRY FLOOR', 12)
    lv.cash(2700, 0)
    lv.go_to(2900, 0, 'foundryfloor')
    return lv


GATE_WAVE_EVENTS = [
    (1000, 'hatch_a'), (3000, 'hatch_b'),
    (25000, 'wave2_msg'), (25000, 'hatch_c'),
    (40000, 'locker'), (40000, 'locker_bay'), (40000, 'locker_msg'),
    (50000, 'wave3_msg'), (50000, 'kennel'), (52000, 'hatch_d'),
    (75000, 'wave4_msg'), (75000, 'hatch_e'), (77000, 'hatch_f'),
    (105000, 'gate'), (105000, 'gate_steam'), (105000, 'gate_msg'),
]


def write_waves(directory):
    path = os.path.join(directory, os.path.basename(GATE_WAVES))
    with open(path, 'w') as out:
        out.write('<?xml version="1.0" ?>\n<!-- The gate yard: ms after the winch switch. -->\n<waves>\n')
        for time, target in GATE_WAVE_EVENTS:
            out.write(' <event time="%d" target="%s"/>\n' % (time, target))
        out.write('</waves>\n')
    return path


def foundryfloor():
    """The foundry floor: a channel to hop and a shuttle over the first
    pool; a battery pushed into the blast door's cradle; drop hammers, a
    grid and a live rail cut from a switch, with the scrap magnet up to the
    loft; then the casting hall on two shuttles to the furnace controls
    that hold the last doors."""
    lv = Place('foundryfloor', 'foundry')
    lv.title = 'The Foundry Floor'
    lv.sky('lava', 'lava', music='foundry')
    lv.bookends(-32, 4160, bottom=-480, top=720)
    H = 320
    lv.ceiling(-32, 4160, H)
    lv.backdrop(-32, -64, 4160, H)
    lv.ground(-32, 480, 0)

    lv.spawn(40, 8)
    lv.sign(40, 200, 'FOUNDRY FLOOR', 14)
    for x in (180, 1240, 2440, 3560):
        lv.detail(x, 48, x + 96, 112, 'lava1', colour='255,140,60,255', glow=True)
        lv.detail(x - 8, 112, x + 104, 124, 'metal1')
    lv.lamp(100, H - 6, 96)
    lv.message(300, 0, 'Molten metal burns: hop the channel', width=32)

    # Beat one: a channel to hop, then a pool crossed on a shuttle.
    lv.ground(480, 528, -32, surface=False)
    lv.lava(480, 528, -32, -18)
    lv.effect(504, -8, 'fire')
    lv.ground(528, 700, 0)
    # Shallow: a fall costs a hop out and a little health.
    lv.ground(700, 960, -32, surface=False)
    lv.lava(700, 960, -32, -18)
    lv.platform('shuttle_1', 700, -8, 764, 0, (196, 0), speed=70, timeopen=1500)
    lv.message(600, 0, 'Stand still on the shuttle: it carries you over', width=32)
    lv.effect(830, -18, 'sparkshower')
    lv.lamp(800, H - 6, 96)
    lv.ground(960, 1700, 0)
    lv.pickup('health', 1000, 0)
    lv.pickup('plasmagunammo', 1030, 0, 20, attributes={'ammo': '40'})
    lv.spawn(1020, 8, 'battery')

    # Beat two: the battery and the blast door's cradle.
    lv.battery(1100, 0)
    # A kerb behind the battery keeps it out of the pool.
    lv.block(1060, 0, 1068, 8, 'trim')
    lv.message(1040, 0, 'Push the battery into the cradle by the blast door', width=32)
    # Up to the door, so a battery shoved against it still sits in the cradle.
    lv.batteryslot(1596, 1660, 0, 'blast_door,power_msg')
    lv.hidden('messengerbody', 1600, 100, 'power_msg', attributes={'message': 'Power! The blast door lifts'})
    lv.block(1660, 200, 1692, H, 'wall')
    lv.door('blast_door', 1660, 0, 1692, 200, lift=180, speed=60)
    lv.hazard_strip(1660, 1692, 196, 4)
    lv.grunt('meleegrunt', 1300, 0, 3)
    lv.grunt('plasmagrunt', 1450, 120, 2)
    lv.lamp(1300, H - 6, 96)
    lv.lamp(1560, 120, 48)
    lv.sign(1560, 150, 'BLAST DOOR', 12)
    lv.pickup('rocketlauncherammo', 1520, 0, 20, attributes={'ammo': '10'})
    lv.pickup('quickarmour', 1480, 0)

    # Beat three: the press line. Two drop hammers, a grid and a live rail.
    lv.ground(1700, 2800, 0)
    lv.checkpoint(1720, 0)
    lv.spawn(1740, 8, 'press')
    lv.message(1760, 0, 'Drop hammers: run under as each one rises', width=32)
    for i, x in enumerate((1900, 2080)):
        lv.block(x - 40, H - 40, x + 40, H, 'beam')
        lv.enemy('ballofdeath', x, 240, 1, 'ballofdeath', size=40, mass=0,
                 attributes={'openoffset': '0,-212', 'speed': '200', 'timeopen': str(900 + 300 * i)})
    # A tesla tower hung over the way: it only reaches 96, so shoot it from
    # further; once it is scrap the way under it is clear.
    lv.detail(2164, 124, 2176, H, 'metal1')
    lv.enemy('electrotower', 2170, 100, 1, 'electrotower1', size=48, mass=0)
    lv.message(2030, 0, 'A tesla tower: it reaches only a short way, so shoot it from here', width=32)
    lv.pickup('health', 2230, 0)
    lv.grid(2260, 0, 2276, H, pain=15, timeon=1500, timeoff=1500)
    lv.sound(2268, 60, 'world/hum.wav', 60)
    lv.switch(2340, 0, 'rail_group')
    lv.hidden('targetgroup', 2340, 60, 'rail_group', targets='live_rail,loft_pad,rail_msg')
    lv.hidden('messengerbody', 2350, 60, 'rail_msg', attributes={'message': 'Power moves from the rail to the lift pad'})
    lv.lamp(2330, 40, 32)
    lv.painbody(2400, 0, 2560, 6, pain=8, idname='live_rail')
    lv.effect(2480, 4, 'electricsparks')
    # The rail's magnet tugs loose metal, the player included, towards it.
    lv.attractor(2480, 40, 4, 110)
    lv.effect(2480, 60, 'attractor')
    lv.message(2300, 0, 'A live rail: its switch cuts the power', width=32)
    lv.grunt('shotgungrunt', 2600, 60, 3)
    lv.pickup('shotgunammo', 2620, 0, 20, attributes={'ammo': '12'})

    # The lift pad to the loft, dead until the rail's switch is thrown.
    lv.block(2660, 200, 2800, 216, 'deck')
    lv.body('triggeredjumppad', 2620, 0, 2652, 8, 'data/images/grate1.png', solid=False, entity=True,
            outlined=False, idname='loft_pad',
            attributes={'speed': '0,200', 'starton': 'false', 'triggeronce': 'true'})
    lv.message(2570, 0, 'The lift pad throws you up beside the loft: steer on to it', width=32)
    lv.cash(2700, 216, 25)
    lv.cash(2740, 216, 25)
    lv.pickup('megahealth', 2770, 216)
    lv.enemy('egg', 2720, 228, 1, 'egg1', size=24, mass=10)

    # Beat four: the casting hall. Two shuttles over a long pool, biters
    # over it, and the furnace controls behind the last doors.
    lv.checkpoint(2780, 0)
    lv.spawn(2820, 8, 'casting')
    lv.pickup('armour', 2740, 0)
    lv.ground(2800, 3700, -96, surface=False)
    lv.lava(2880, 3264, -96, -40)
    lv.lava(3336, 3700, -96, -40)
    # A step out of each pool, clear of the shuttles' ends: under a shuttle
    # at rest the top step is a slot with no way up. From the top step by a
    # shuttle's home a jump lands on its deck.
    lv.stairs(3024, -96, 4, direction=-1, rise=16, run=20)
    lv.stairs(3620, -96, 4, rise=16, run=20)
    lv.stairs(3184, -96, 4, rise=16, run=20)
    lv.stairs(3480, -96, 4, direction=-1, rise=16, run=20)
    lv.pickup('health', 3290, 0)
    # The strip is flush with the decks: stepping down off a raised edge
    # sets the shuttle off before the player lands, and it leaves them behind.
    lv.block(3264, -96, 3336, -4, 'wall')
    lv.hazard_strip(3264, 3336, -4, 4)
    lv.platform('shuttle_2', 2880, -8, 2944, 0, (320, 0), speed=80, timeopen=2000)
    lv.platform('shuttle_3', 3336, -8, 3400, 0, (300, 0), speed=80, timeopen=2000)
    lv.ground(2800, 2880, 0)
    lv.message(2800, 0, 'Ride the shuttles standing still. Fallen in? Hold $bind:+moveup to swim to the steps', width=32)
    lv.effect(3000, -40, 'fire')
    lv.effect(3500, -40, 'fire')
    # Ladles on chains over the pools, and furnace mouths glowing behind.
    for x in (3060, 3480):
        lv.detail(x, 200, x + 56, 240, 'metal2')
        lv.detail(x + 24, 240, x + 32, H, 'metal1')
        lv.detail(x + 6, 200, x + 50, 206, 'lava1', colour='255,160,90,255', glow=True)
    # Low levels split again and again; these split once at most.
    lv.enemy('bacteria', 3100, 180, 3, 'bacteria3')
    lv.enemy('bacteria', 3500, 200, 4, 'bacteria4')
    lv.lamp(3050, H - 6, 96)
    lv.lamp(3450, H - 6, 96)
    lv.ground(3700, 4160, 0)

    # The furnace controls: destroy the drive and the processor, each
    # holds one door. Engineers patch them.
    lv.sign(3720, 200, 'FURNACE CONTROL', 12)
    lv.spawn(3710, 8, 'control')
    lv.enemy('harddrive', 3780, 24, 1, 'harddrive', size=48, mass=0, attributes={'health': '150'})
    lv.parts[-1] = lv.parts[-1].replace('targets=""', 'targets="control_door_1"', 1)
    lv.detail(3860, 0, 3880, 48, 'metal1')   # a mast the drive hangs on; walk under it
    lv.enemy('cpu', 3870, 72, 1, 'cpu', size=48, mass=0, attributes={'health': '150'})
    lv.parts[-1] = lv.parts[-1].replace('targets=""', 'targets="control_door_2"', 1)
    lv.enemy('engineer', 3800, 200, 1, 'engineerenemy', size=32)
    lv.enemy('engineer', 3900, 220, 1, 'engineerenemy', size=32)
    lv.message(3710, 0, 'Wreck the drive and the processor before the engineers patch them', width=32)
    lv.pickup('rocketlauncherammo', 3730, 0, 20, attributes={'ammo': '10'})
    lv.pickup('grenadelauncherammo', 3750, 0, 20, attributes={'ammo': '10'})
    lv.block(3960, 140, 4040, H, 'wall')
    lv.alphadoor('control_door_1', 3960, 0, 3984, 140)
    lv.alphadoor('control_door_2', 4016, 0, 4040, 140)
    lv.lamp(4060, H - 6, 64)
    lv.sign(4060, 100, 'YARD', 12)
    lv.go_to(4080, 0, 'blockyard')
    return lv


def blockyard():
    """The block boss's yard: a passage with one block to learn the push,
    then the walled yard where only a block of the boss's colour hurts it,
    reinforcements drop every 20 s, and the gate opens when it falls."""
    lv = Place('blockyard', 'foundry')
    lv.title = 'The Block Yard'
    lv.sky('lava,night', 'lava', music='boss')
    lv.bookends(-32, 2560, bottom=-480, top=1600)
    lv.ground(-32, 2560, 0)

    # The passage in from the foundry.
    H = 200
    lv.ceiling(-32, 632, H)
    lv.block(-32, H + 64, 632, 1600, 'wall')
    lv.wall(600, 96, H)
    # From the rock at the west end, so no sky shows beside it.
    lv.backdrop(-32, 0, 600, H)
    lv.spawn(40, 8)
    lv.sign(40, 150, 'THE BLOCK YARD', 14)
    lv.lamp(100, H - 6, 96)
    lv.lamp(420, H - 6, 96)
    lv.body('bossblock', 240, 0, 288, 48, 'data/images/bossblock1.png', mass=20, entity=True, tile=False,
            attributes={'blocktype': '0'})
    lv.message(160, 0, 'Blocks slide when you walk into them', width=32)
    lv.pickup('health', 420, 0)
    lv.pickup('armour', 460, 0)
    lv.pickup('rocketlauncherammo', 500, 0, 20, attributes={'ammo': '10'})
    lv.checkpoint(560, 0)
    lv.message(500, 0, 'Guns do not hurt the boss: push into it the block whose colour matches its face', width=40,
               height=96)

    # The yard: walls up to the sky, a clip over it, balconies reached by pads.
    lv.block(2200, 120, 2560, 1600, 'wall')
    lv.door('yard_gate', 2200, 0, 2232, 120, lift=110, speed=50)
    lv.hazard_strip(2200, 2232, 120, 6)
    lv.body('clip', 632, 1000, 2200, 1016, entity=True, visible=False, outlined=False)
    for x0, x1, pad in ((632, 800, 1040), (2040, 2200, 1784)):
        lv.block(x0, 184, x1, 200, 'deck')
        lv.jumppad(pad, 0, (70 if pad > 1400 else -70, 220))
    lv.pickup('health', 660, 200)
    lv.pickup('screenwiper', 720, 200)
    lv.pickup('armour', 2080, 200)
    lv.pickup('quickhealth', 2140, 200)
    for x in (900, 1500):
        lv.detail(x, 0, x + 16, 700, 'metal1')
        lv.block(x - 80, 700, x + 96, 720, 'beam')
    lv.effect(1400, 900, 'smoke')
    lv.sound(1400, 100, 'world/hum.wav', 40)

    # Not named after the yard, so "warpto" names stay free for points.
    enemy(lv, 'blockboss', 1500, 260, 1, 'blockboss1', size=128, mass=150, idname='theblockboss',
          attributes={'adds1': 'adds_swarm', 'adds2': 'adds_bugs', 'arenaleft': '632', 'arenaright': '2200'})
    lv.parts[-1] = lv.parts[-1].replace('targets=""', 'targets="yard_gate,boss_msg"', 1)
    lv.hidden('messengerbody', 1400, 600, 'boss_msg',
              attributes={'message': 'The block boss is scrap. The gate is up: out over the rooftops'})
    for x, blocktype in ((700, 0), (780, 1), (860, 2), (1140, 1), (1240, 2), (1640, 0), (1880, 2),
                         (1960, 1), (2040, 0)):
        lv.body('bossblock', x, 0, x + 48, 48, 'data/images/bossblock%d.png' % (blocktype + 1), mass=20,
                entity=True, tile=False, attributes={'blocktype': str(blocktype)})
    # Bacteria split once at level 3, so a call brings at most six.
    for idname, x, kind, level, count in (('adds_swarm', 1000, 'swarmer', '2', '6'),
                                          ('adds_bugs', 1900, 'bacteria', '3', '3')):
        lv.hidden('spawner', x, 600, idname, attributes={'spawnedtype': kind, 'spawnlevel': level, 'maxalive': '3',
                                                         'maxspawned': count, 'spawndelay': '1200'})
    lv.pickup('rocketlauncherammo', 1400, 0, 20, attributes={'ammo': '10'})

    # Past the gate: the way up to the rooftops. A kerb keeps blocks shoved
    # through the gate from burying the exit.
    lv.backdrop(2232, 0, 2560, 120)
    lv.block(2240, 0, 2248, 8, 'trim')
    lv.lamp(2300, 114, 64)
    lv.cash(2300, 0, 25)
    lv.sign(2260, 90, 'TO THE ROOFTOPS', 12)
    # The act ends: a cut scene takes the player up to the rooftops.
    lv.exit(2480, 0, 'rooftops', 'brindlequay/rooftops')
    return lv


def main():
    root = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..', 'maps')
    directory = sys.argv[1] if len(sys.argv) > 1 else root
    for lv in (signalhouse(), foundrygates(), foundryfloor(), blockyard()):
        print(os.path.relpath(lv.write(directory)))
    print(os.path.relpath(write_waves(directory)))


if __name__ == '__main__':
    main()
