#!/usr/bin/env python3
"""Writes Act 3 of the adventure: maps/rooftops.xml (a race over the foundry
roofs to a hatch on a timer), maps/serverhalls.xml (a pass through the
server halls under search lights) and maps/destroyerlair.xml (the
destroyer's furnace pit). Re-run after editing; the output is committed.

  python3 tools/maps/act3.py            # writes into maps/
"""
import os
import random
import sys

from enemies import enemy
from places import Place

ALLEY = -192        # the lanes between the roofs


def post(lv, kind, x, floor, idname, attributes=None, targets=''):
    """A race post: chequered while it waits, red once touched."""
    lv.body(kind, x, floor, x + 12, floor + 48, 'data/images/checkers.png', solid=False, entity=True,
            outlined=False, tile=False, idname=idname, targets=targets, attributes=attributes)


def zone(lv, kind, x0, y0, x1, y1, idname=None, targets='', attributes=None):
    """An invisible logic body."""
    lv.body(kind, x0, y0, x1, y1, solid=False, entity=True, visible=False, outlined=False, idname=idname,
            targets=targets, attributes=attributes)


def messenger(lv, idname, x, y, text):
    zone(lv, 'messengerbody', x, y, x + 8, y + 8, idname, attributes={'message': text})


def point(lv, idname, x, floor):
    zone(lv, 'namedpoint', x, floor + 8, x + 16, floor + 24, idname)


def teleporter(lv, x, floor, destination, idname=None):
    """A pad that sends whoever steps on it to a named point, with its shimmer."""
    lv.body('teleporter', x, floor, x + 32, floor + 8, 'data/images/techbase.png', solid=False, entity=True,
            outlined=False, tile=False, colour='170,220,255,255', idname=idname, targets=destination,
            attributes={'glow': 'true'})
    zone(lv, 'teleportervisual', x + 12, floor + 8, x + 20, floor + 16)


def gap(lv, x0, x1, west_top, east_top, climb_east=False):
    """A lane between two roofs with steps back up, so a fall costs time, not the run."""
    lv.ground(x0, x1, ALLEY)
    lv.backdrop(x0, ALLEY, x1, min(west_top, east_top), 'ground')
    top = east_top if climb_east else west_top
    steps = int((top - ALLEY) // 16)
    rise = (top - ALLEY) / steps
    if climb_east:
        lv.stairs(x1 - steps * 16, ALLEY, steps, direction=1, rise=rise, run=16)
    else:
        lv.stairs(x0 + steps * 16, ALLEY, steps, direction=-1, rise=rise, run=16)


def chimney(lv, x, top, width=24):
    """A brick stack that holds a beam; walked past in front."""
    lv.detail(x, 0, x + width, top, 'concrete1', colour='200,190,180,255')
    lv.detail(x, top - 8, x + width, top, 'hazard1')


def skyline(lv, x0, x1, seed=7):
    """The harbour's far roofs and stacks behind the play plane, dark against the night."""
    rng = random.Random(seed)
    x = x0
    while x < x1:
        width = rng.randrange(96, 192, 16)
        height = rng.randrange(96, 336, 16)
        lv.detail(x, 0, x + width, height, 'concrete2', colour='55,58,78,255')
        for wy in range(32, height - 16, 48):
            if rng.random() < 0.35:
                wx = x + rng.randrange(12, width - 28, 8)
                lv.detail(wx, wy, wx + 12, wy + 16, 'concrete1', colour='255,214,140,255')
        if rng.random() < 0.25:
            lv.detail(x + 16, height, x + 32, height + 96, 'concrete1', colour='70,66,74,255')
            lv.effect(x + 24, height + 96, 'smoke')
        x += width + rng.randrange(0, 64, 16)


def rooftops():
    """The foundry roofs at night: a warm-up crate run, then the race to the
    server-hall hatch over gutters, hooked lanes, a jump pad and a sniper."""
    lv = Place('rooftops', 'roofs')
    lv.title = 'The Foundry Roofs'
    lv.sky('night,haze', 'night', music='servers')
    west, east = -512, 4480
    lv.bookends(west, east, bottom=-700, top=1000)
    skyline(lv, west, east)

    # The stair head: closed to the west, a door onto the roof.
    lv.room(-480, -160, 0, 160, doors=(0, 96))
    lv.spawn(-440, 8)
    lv.lamp(-360, 154, 96)
    lv.sign(-460, 120, 'FOUNDRY ROOF', 12)
    lv.pickup('health', -300, 0)
    lv.message(-400, 0, 'The hatches on these roofs run on timers', width=32)

    # Beat one: the warm-up. Touch the flag and push the crate into the
    # chute against the clock; falling into the chute puts the crate back.
    lv.ground(-128, 700, 0)
    lv.ground(700, 748, -32)
    lv.backdrop(700, -32, 748, 0, 'ground')
    lv.hazard_strip(692, 700, 0, 4)
    lv.hazard_strip(748, 756, 0, 4)
    lv.ground(748, 980, 0)
    post(lv, 'racestart', 80, 0, 'warmup', {'endbody': 'chute', 'untriggertimer': '2000'})
    lv.body('raceblock', 300, 0, 332, 32, 'data/images/planks1.png', mass=20, entity=True, tile=False,
            idname='crate')
    zone(lv, 'raceendblock', 708, -32, 740, -20, 'chute',
         attributes={'startbody': 'warmup', 'blocks': 'crate', 'untriggertimer': '3000'})
    zone(lv, 'racereset', 700, -32, 748, -24, 'chute_reset', attributes={'untriggertimer': '1000'})
    lv.sign(40, 130, 'WARM-UP: FLAG, CRATE, CHUTE', 12)
    lv.message(20, 0, 'Touch the flag, then push the crate into the chute', width=40)
    lv.message(640, 0, 'Jump into the chute to start again', width=24)
    lv.lamp(690, 100, 64)
    lv.detail(680, 0, 688, 106, 'metal1')
    lv.detail(760, 0, 768, 106, 'metal1')
    lv.cash(560, 0)

    # Beat two: the race. The start post also opens the far hatch, which
    # shuts again after a minute.
    lv.checkpoint(820, 0)
    point(lv, 'startline', 860, 0)
    post(lv, 'racestart', 900, 0, 'race', {'endbody': 'finish', 'untriggertimer': '3000'})
    zone(lv, 'trigger', 900, 0, 912, 48, 'race_go', targets='hatch,hatch_msg',
         attributes={'untriggertimer': '70000'})
    messenger(lv, 'hatch_msg', 910, 60, 'The server hatch is open: one minute!')
    lv.sign(840, 120, 'RACE TO THE HATCH ->', 12)
    lv.detail(902, 0, 906, 64, 'metal1')
    lv.lamp(880, 64, 48)

    # A gutter to hop, then roof B with vents.
    lv.ground(980, 1036, -32)
    lv.backdrop(980, -32, 1036, 0, 'ground')
    lv.ground(1036, 1400, 0)
    lv.crate(1160, 0, 32, mass=0)
    lv.crate(1280, 0, 24, mass=0)
    post(lv, 'racecheckpoint', 1340, 0, 'lap_1', {'untriggertimer': '5000'})

    lv.spawn(1300, 8, 'lane')
    # The wide lane, hooked from the beam between the chimneys.
    gap(lv, 1400, 1720, 0, 0)
    chimney(lv, 1380, 276)
    chimney(lv, 1716, 276)
    lv.beam(1380, 1740, 260)
    lv.lamp(1530, 254, 48)
    lv.message(1300, 0, 'Hook the beam: $bind{+fire 1}', width=40, height=96)
    lv.cash(1460, 260, 25)

    # Beat three: roof C and its shed, a jump pad up to roof D, a turret
    # on D's far edge.
    lv.ground(1720, 2240, 0)
    lv.spawn(2080, 8, 'pad')
    lv.block(1820, 120, 2000, 136, 'ceiling')
    lv.wall(1820, 48, 120, 16)
    lv.wall(1984, 0, 120, 16)
    lv.backdrop(1836, 0, 1984, 120)
    lv.cash(1900, 0, 25)
    lv.pickup('quickarmour', 1940, 0)
    lv.weapon('rocketlauncher', 1860, 0, 10)
    lv.sign(1850, 96, 'ROOF SHED', 10)
    post(lv, 'racecheckpoint', 2040, 0, 'lap_2', {'untriggertimer': '5000'})
    lv.body('jumppad', 2136, 0, 2184, 8, 'data/images/hazard1.png', solid=False, entity=True, outlined=False,
            tile=False, attributes={'speed': '60,230', 'glow': 'true'})
    lv.sign(2100, 60, 'PAD ^', 10)
    lv.ground(2240, 2760, 176, depth=176 + 480)
    lv.turret(2700, 176)
    lv.pickup('quickhealth', 2300, 176)
    post(lv, 'racecheckpoint', 2340, 176, 'lap_3', {'untriggertimer': '5000'})

    lv.spawn(2600, 184, 'jib')
    # Down to roof E by the crane jib off the tower.
    gap(lv, 2760, 3000, 176, 0, climb_east=True)
    lv.detail(2960, 0, 3000, 460, 'metal1')
    lv.beam(2780, 2980, 330)
    lv.lamp(2860, 324, 48)
    lv.detail(2770, 330, 2780, 460, 'metal1')
    lv.detail(2770, 460, 3000, 472, 'metal1')

    # Beat four: roof E under fire, then the last lane to the hatch.
    lv.ground(3000, 3560, 0)
    lv.spawn(3060, 8, 'fire')
    lv.checkpoint(3040, 0)
    lv.grunt('rocketgrunt', 3300, 0, 3)
    lv.ledge(3440, 3520, 140)
    lv.detail(3476, 0, 3484, 124, 'metal1')
    lv.grunt('sniper', 3480, 140, 3)
    lv.body('explodingbarrel', 3380, 0, 3404, 32, 'data/images/hazard1.png', mass=30, entity=True, tile=False)
    lv.pickup('health', 3100, 0)
    lv.pickup('rocketlauncherammo', 3140, 0, 20, attributes={'ammo': '10'})
    gap(lv, 3560, 3880, 0, 0, climb_east=True)
    chimney(lv, 3540, 276)
    chimney(lv, 3876, 276)
    lv.beam(3540, 3900, 260)

    # Roof F: the finish flag and the hatch. Too late? A pad on the hut's
    # roof, out of the racers' way, goes back to the start line.
    lv.ground(3880, 4480, 0)
    lv.spawn(3900, 8, 'finish_line')
    post(lv, 'raceend', 3960, 0, 'finish', {'startbody': 'race', 'targettime': '60', 'untriggertimer': '3000'})
    teleporter(lv, 4300, 240, 'startline')
    # Three short lines: one long one ran on over the hatch and its sign.
    for i, line in enumerate(('TOO LATE? HOOK UP', 'TO THE PAD: BACK', 'TO THE START')):
        lv.sign(3980, 150 - 16 * i, line, 10)
    lv.room(4232, 4448, 0, 176, doors=(64, 0))
    lv.door('hatch', 4200, 0, 4232, 64, lift=64, speed=96, timeopen=60000)
    lv.lamp(4180, 70, 64)
    lv.sign(4260, 120, 'SERVER HALLS', 12)
    lv.pickup('health', 4280, 0)
    lv.cash(4320, 0, 25)
    lv.exit(4390, 0, 'serverhalls', 'brindlequay/serverhalls')
    return lv


def rack(lv, x, ceiling, width=64, bottom=48):
    """A server cabinet hung from the ceiling; its shadow underneath is cover."""
    lv.block(x, bottom, x + width, ceiling, 'wall')
    lv.detail(x + 4, bottom - 3, x + width - 4, bottom, 'hazard1', colour='120,255,140,255', glow=True)


def searchlight(lv, x, ceiling, targets, idname, sweep=(0, 40, -40), speed='25'):
    start, end, low = sweep
    lv.body('searchlight', x - 16, ceiling - 32, x + 16, ceiling, 'data/images/searchlight.png', entity=True,
            outlined=False, tile=False, idname=idname, targets=targets,
            attributes={'startangle': str(start), 'endangle': str(end), 'minangle': str(low), 'speed': speed,
                        'conewidth': '50', 'conelength': '240', 'untriggertimer': '5000',
                        'timepaused': '900'})


def serverhalls():
    """The server halls under the roofs: a rack hall under a search light,
    the drive hall whose vault the drives hold shut, the cooling hall with
    its teleport deck, eggs and grids, and the core hall's ambush."""
    lv = Place('serverhalls', 'servers')
    lv.title = 'The Server Halls'
    lv.sky('night,haze', 'night', music='servers')
    west, east = -32, 5632
    lv.bookends(west, east, bottom=-700, top=1000)
    H = 256
    lv.ground(west, east, 0)
    lv.wall(west, 0, H)

    # The hatch foot: the railgun on its rack, and a maintenance bot.
    lv.ceiling(west, 2832, H)
    lv.backdrop(0, 0, 2832, H)
    lv.spawn(40, 8)
    lv.sign(40, 200, 'SERVER HALLS - MAINTENANCE DECK', 12)
    lv.lamp(80, H - 6, 96)
    lv.block(180, 28, 260, 36, 'beam')
    lv.weapon('railgun', 196, 0, 10)
    lv.pickup('railgunammo', 228, 0, 20, attributes={'ammo': '10'})
    lv.message(150, 0, 'Railgun: $bind{useitem railgun}. Its slug goes through them all', width=32)
    lv.sound(300, 100, 'world/hum.wav', 40)

    # Beat one: the rack hall. A search light sweeps the aisle; the shade
    # under the racks hides you. This one only raises a shout.
    lv.spawn(560, 8, 'racks')
    for x in (640, 832, 1024, 1216):
        rack(lv, x, H)
    searchlight(lv, 930, H, 'seen_1', 'light_1')
    messenger(lv, 'seen_1', 930, 120, 'Spotted! Nothing answers... yet. Keep under the racks')
    lv.message(520, 0, 'Search lights: keep to the shade under the racks', width=32)
    lv.grunt('plasmagrunt', 1330, 0, 3)
    lv.grunt('plasmagrunt', 1420, 0, 3)
    lv.pickup('health', 1380, 0)
    lv.pickup('railgunammo', 1410, 0, 20, attributes={'ammo': '10'})
    lv.checkpoint(1460, 0)
    lv.wall(1500, 96, H)
    lv.lamp(1480, 90, 48)

    # Beat two: the drive hall. The drive and the processor each hold one
    # vault door; engineers patch them, a light calls kamikazes.
    lv.spawn(1560, 8, 'drives')
    lv.message(1540, 0, 'Shoot the drive and the processor: each holds a vault door shut', width=32)
    lv.enemy('harddrive', 1900, 24, image='harddrive', size=48, mass=0,
             attributes={'health': '150'})
    lv.parts[-1] = lv.parts[-1].replace('targets=""', 'targets="vault_1"', 1)
    lv.block(2260, 0, 2340, 40, 'beam')
    lv.enemy('cpu', 2300, 64, image='cpu', size=48, mass=0, attributes={'health': '150'})
    lv.parts[-1] = lv.parts[-1].replace('targets=""', 'targets="vault_2"', 1)
    lv.enemy('engineer', 2000, 160, image='engineerenemy', size=28)
    lv.enemy('kamikazegrunt', 2560, 16, 2, 'kamikazeenemy2')
    lv.enemy('engineer', 2420, 160, image='engineerenemy', size=28)
    for x in (1664, 2112, 2496):
        rack(lv, x, H)
    searchlight(lv, 2200, H, 'alarm_2,alarm_2_msg', 'light_2', sweep=(-20, 35, -35))
    messenger(lv, 'alarm_2_msg', 2200, 120, 'Alarm! The hatch drops kamikazes')
    zone(lv, 'spawner', 2620, 200, 2636, 216, 'alarm_2',
         attributes={'spawnedtype': 'kamikazegrunt', 'spawnlevel': '2', 'maxalive': '2', 'maxspawned': '4',
                     'spawndelay': '2500'})
    lv.block(2600, 224, 2660, H, 'deck')
    for i, x in enumerate((2700, 2740)):
        lv.body('alphadoor', x, 0, x + 24, H, 'data/images/hazard1.png', entity=True, tile=True,
                idname='vault_%d' % (i + 1), attributes={'triggeronce': 'true', 'timeopen': '1000'})
    lv.pickup('health', 2620, 0)
    lv.pickup('quickhealth', 1620, 0)
    lv.pickup('armour', 1650, 0)
    lv.sign(2640, 150, 'VAULT', 12)

    # Beat three: the cooling hall, twice as tall. The pad lifts you to the
    # deck of eggs and bacteria; below, timed grids, a tower and a ball.
    H3 = 480
    lv.block(2800, H, 2832, H3 + 64, 'wall')
    lv.ceiling(2832, 3300, H3)
    lv.ceiling(3500, 4132, H3)
    lv.body('clip', 3300, H3, 3500, H3 + 16, solid=True, entity=True, visible=False, outlined=False)
    lv.detail(3300, H3, 3500, H3 + 16, 'grate1', colour='170,210,255,150')
    lv.backdrop(2832, 0, 4100, H3)
    lv.spawn(2790, 8, 'cooling')
    lv.weapon('lightninggun', 2800, 0, 60)
    lv.pickup('lightninggunammo', 2830, 0, 20, attributes={'ammo': '60'})
    lv.message(2780, 0, 'Lightning gun: $bind{useitem lightninggun}. Hold it on them', width=24)
    teleporter(lv, 2880, 0, 'deck')
    lv.sign(2860, 60, 'DECK LIFT', 10)
    point(lv, 'deck', 2920, 256)
    lv.ledge(2900, 3800, 256, kind='deck', hang=H3)
    lv.pickup('quad', 2960, 256)
    lv.message(2940, 256, 'Quad damage: four times the hurt, for a while', width=32)
    lv.message(3060, 256, 'Eggs! Let your swarm loose on them: $bind{+fire 10}', width=32)
    lv.enemy('egg', 3120, 268, 1, 'egg1', size=24, mass=10)
    lv.enemy('egg', 3260, 268, 2, 'egg2', size=24, mass=10)
    lv.enemy('egglayer', 3560, 300, 1, 'egglayerenemy1', size=32,
             attributes={'spawnlevel': '1', 'maxalive': '2', 'spawndelay': '5000'})
    lv.enemy('bacteria', 3680, 290, 2, 'bacteria2')
    lv.enemy('swarmer', 3400, 300, 1, 'swarmer1', size=16)
    lv.body('skytransition', 3300, 256, 3340, H3, solid=False, entity=True, visible=False, outlined=False,
            attributes={'sky': 'haze', 'triggeronce': 'true'})
    lv.message(3300, 256, 'Through the skylight: dawn over the harbour', width=40)
    lv.pickup('health', 3760, 256)
    # The lower way: two grids on timers, then a tower and a falling ball.
    for i, (x, on) in enumerate(((3020, 'true'), (3180, 'false'))):
        lv.body('electrogrid', x, 0, x + 12, 240, 'data/images/grate1.png', solid=False, entity=True,
                outlined=False, attributes={'on': on, 'pain': '15', 'timeon': '1600', 'timeoff': '1400',
                                             'glow': 'true'})
    lv.block(3440, 0, 3504, 32, 'beam')
    lv.enemy('electrotower', 3472, 56, image='electrotower1', size=48, mass=0)
    lv.enemy('ballofdeath', 3640, 220, image='ballofdeath', size=32, mass=0,
             attributes={'openoffset': '0,-196', 'speed': '200', 'timeopen': '700'})
    lv.pickup('megahealth', 3340, 0)
    # The switch at the deck's end wakes the vent pad under the cold store for a while.
    lv.switch(3780, 256, 'vent_pad,vent_msg')
    messenger(lv, 'vent_msg', 3780, 300, 'The vent below blows for ten seconds')
    # It throws high and slow, so the player rises clear of the store's edge before reaching it.
    lv.body('triggeredjumppad', 3880, 0, 3928, 8, 'data/images/hazard1.png', solid=False, entity=True,
            outlined=False, tile=False, idname='vent_pad',
            attributes={'speed': '30,210', 'starton': 'false', 'untriggertimer': '10000', 'glow': 'true'})
    lv.ledge(3980, 4100, 200, kind='deck', hang=H3)
    lv.cash(4000, 200, 25)
    lv.cash(4030, 200, 25)
    lv.pickup('screenwiper', 4060, 200)
    lv.sign(3990, 240, 'COLD STORE', 10)
    lv.checkpoint(4060, 0)
    lv.block(4100, 96, 4132, H3 + 64, 'wall')

    # Beat four: the core hall. Stepping in shuts the door behind and wakes
    # everything; mines on the floor, steam vents a switch can stop.
    H4 = 320
    lv.ceiling(4132, east, H4)
    lv.backdrop(4100, 0, east, H4)
    lv.spawn(4160, 8, 'core')
    lv.pickup('invincibility', 4200, 0)
    lv.pickup('quickarmour', 4170, 0)
    lv.enemy('friendly', 4240, 24, 3, 'friendly', size=20, mass=10)
    lv.message(4180, 0, 'A maintenance bot waits here: it fights on your side', width=32)
    lv.body('alphadoor', 4132, 0, 4148, 96, 'data/images/hazard1.png', entity=True, idname='core_shut',
            attributes={'startopen': 'true', 'triggeronce': 'true'})
    zone(lv, 'trigger', 4300, 0, 4316, H4, 'core_trigger', targets='ambush',
         attributes={'triggeronce': 'true'})
    zone(lv, 'targetgroup', 4300, 300, 4308, 308, 'ambush', targets='core_shut,ambush_msg,ambush_1')
    messenger(lv, 'ambush_msg', 4310, 300, 'The core wakes up: the door seals behind you!')
    zone(lv, 'spawner', 4700, 280, 4716, 296, 'ambush_1',
         attributes={'spawnedtype': 'meleegrunt', 'spawnlevel': '3', 'maxalive': '2', 'maxspawned': '5',
                     'spawndelay': '3000'})
    lv.block(4680, 304, 4740, H4, 'deck')
    lv.ledge(4560, 4680, 120, hang=H4)
    lv.pickup('megaquad', 4600, 120)
    for x in (4500, 4820, 4900):
        lv.enemy('proxygrenade', x, 8, image='proxygrenade', size=16, mass=10)
        lv.hazard_strip(x - 16, x + 16, 0, 2)
    lv.enemy('spawnergrunt', 5000, 200, 3, 'spawnerenemy1', size=32,
             attributes={'spawntype': 'swarmer', 'spawnlevel': '1', 'maxalive': '3', 'spawndelay': '4000'})
    lv.body('painbody', 5160, 0, 5240, 160, 'data/images/grate1.png', solid=False, entity=True, outlined=False,
            colour='255,255,255,90', idname='vent', attributes={'on': 'true', 'pain': '6', 'reverttimer': '8000'})
    lv.effect(5180, 8, 'steam')
    lv.effect(5220, 8, 'steam')
    lv.switch(5120, 0, 'vent')
    lv.message(5080, 0, 'Steam! The switch shuts the vent for a few seconds', width=32)
    lv.ledge(5300, 5420, 160, hang=H4)
    lv.grunt('sniper', 5360, 160, 4)
    lv.grunt('chaingungrunt', 5460, 0, 4)
    for x in (4960, 4990):
        lv.body('explodingbarrel', x, 0, x + 20, 28, 'data/images/hazard1.png', mass=30, entity=True, tile=False)
    lv.pickup('health', 5440, 0)
    lv.pickup('lightninggunammo', 5410, 0, 20, attributes={'ammo': '60'})
    lv.cash(5390, 160, 25)
    for x in (4400, 4900, 5400):
        lv.lamp(x, H4 - 6, 96)
    # The lift down has no power: push the cell into its slot to open it.
    lv.spawn(5260, 8, 'lift')
    lv.body('battery', 5300, 0, 5324, 24, 'data/images/techpanel2.png', mass=30, entity=True, tile=False,
            colour='200,255,200,255', attributes={'glow': 'true'})
    lv.body('batteryslot', 5480, 0, 5528, 16, 'data/images/grate1.png', solid=False, entity=True, outlined=False,
            tile=False, colour='150,255,170,255', targets='pit_door,pit_msg', attributes={'triggeronce': 'true'})
    messenger(lv, 'pit_msg', 5500, 60, 'Power! The lift door opens')
    lv.message(5260, 0, 'The lift has no power: push the cell into the slot', width=32)
    lv.door('pit_door', 5540, 0, 5556, 96, lift=96, speed=64)
    lv.sign(5440, 250, 'FURNACE PIT - DOWN', 12)
    lv.exit(5560, 0, 'destroyerlair', 'brindlequay/lair')
    return lv


def destroyerlair():
    """The destroyer's furnace pit: supplies on the balcony, a stair down into
    the pit with its lava wells and hung platforms, the gate it guards."""
    lv = Place('destroyerlair', 'lair')
    lv.title = "The Destroyer's Lair"
    lv.sky('lava,night', 'lava', music='boss')
    west, east = -32, 2632
    lv.bookends(west, east, bottom=-800, top=1000)
    PIT = -160
    TOP = 480

    # The balcony: supplies, and the old maintenance swarm.
    lv.room(0, 600, 0, 224, doors=(0, None))
    lv.spawn(40, 8)
    lv.sign(40, 170, 'FURNACE PIT', 14)
    lv.lamp(120, 218, 96)
    lv.lamp(420, 218, 96)
    lv.block(140, 28, 300, 36, 'beam')
    lv.weapon('grenadelauncher', 150, 0, 12)
    lv.pickup('grenadelauncherammo', 190, 0, 20, attributes={'ammo': '12'})
    lv.pickup('rocketlauncherammo', 230, 0, 20, attributes={'ammo': '15'})
    lv.pickup('railgunammo', 270, 0, 20, attributes={'ammo': '10'})
    lv.message(120, 0, 'Grenades: $bind{useitem grenadelauncher}. They bounce', width=24)
    lv.pickup('megahealth', 340, 0)
    lv.pickup('armour', 380, 0)
    for x in (60, 90, 120):
        lv.body('swarmmember', x, 40, x + 16, 56, 'data/images/swarmmember.png', mass=10, entity=True,
                outlined=False, tile=False)
    lv.message(20, 0, 'The old maintenance swarm wakes; its nest over the pit sends more', width=32)
    lv.checkpoint(560, 0)

    # Beat one: the stair down; the destroyer paces far below.
    lv.ground(600, 2232, PIT)
    lv.stairs(792, PIT, 10, direction=-1, rise=16, run=16)
    lv.ceiling(600, 2232, TOP)
    lv.block(600, 224, 632, TOP, 'wall')
    lv.backdrop(600, PIT, 2200, TOP)
    lv.spawn(820, PIT + 8, 'pit')
    # Stepping into the pit wakes the swarm's nest: a few at a time, all fight.
    zone(lv, 'trigger', 800, PIT, 816, 200, 'pit_trigger', targets='swarm_nest,furnace_waves',
         attributes={'triggeronce': 'true'})
    # The furnace vents spit out leftovers while the fight goes on.
    zone(lv, 'wavecontroller', 820, 200, 828, 208, 'furnace_waves',
         attributes={'wavefile': 'maps/destroyerlair_waves.xml'})
    for idname, x, kind in (('vent_1', 1160, 'swarmer'), ('vent_2', 1840, 'bacteria')):
        zone(lv, 'spawner', x, 400, x + 16, 416, idname,
             attributes={'spawnedtype': kind, 'spawnlevel': '1', 'maxalive': '3', 'maxspawned': '0'})
        lv.block(x - 24, 424, x + 40, TOP, 'deck')
        lv.effect(x + 8, 420, 'smoke')
    messenger(lv, 'vent_msg', 840, 200, 'The furnace vents cough up the foundry\'s leftovers')
    zone(lv, 'spawner', 702, 400, 718, 416, 'swarm_nest',
         attributes={'spawnedtype': 'swarmmember', 'maxalive': '3', 'maxspawned': '12', 'spawndelay': '4000'})
    lv.block(680, 440, 740, TOP, 'deck')
    lv.message(700, PIT, 'It fights in bursts: rockets, grenades, shotgun, then a pause', width=32)

    # Beats two and three: the pit. Lava wells with a step out of each,
    # hung platforms reached by pads, the gate it guards.
    for x0 in (1000, 1620):
        lv.ground(x0, x0 + 120, PIT - 64)
        lv.body('lava', x0, PIT - 64, x0 + 120, PIT - 36, 'data/images/lava1.png', solid=False, entity=True,
                outlined=False, colour='255,200,160,230')
        lv.backdrop(x0, PIT - 64, x0 + 120, PIT, 'ground')
        lv.block(x0, PIT - 64, x0 + 24, PIT - 32, 'deck')
        lv.block(x0 + 96, PIT - 64, x0 + 120, PIT - 32, 'deck')
        lv.effect(x0 + 60, PIT - 40, 'fire')
        lv.hazard_strip(x0 - 8, x0, PIT, 3)
        lv.hazard_strip(x0 + 120, x0 + 128, PIT, 3)
    # The furnace draws air down into the far well, and anything light with it.
    zone(lv, 'attractor', 1672, PIT - 60, 1688, PIT - 44, 'draught', attributes={'force': '4', 'radius': '96'})
    lv.sound(1060, PIT, 'world/hum.wav', 50)
    # Each pad throws a little over its platform, not over the whole pit.
    for x0, x1, y, pad, lift in ((940, 1060, 0, 860, 230), (1340, 1500, 60, 1250, 250),
                                 (1860, 1980, 0, 1780, 230)):
        lv.ledge(x0, x1, y, hang=TOP)
        lv.body('jumppad', pad, PIT, pad + 40, PIT + 8, 'data/images/hazard1.png', solid=False, entity=True,
                outlined=False, tile=False, attributes={'speed': '30,%d' % lift, 'glow': 'true'})
    lv.pickup('rocketlauncherammo', 980, 0, 20, attributes={'ammo': '15'})
    lv.pickup('armour', 1400, 60)
    lv.pickup('health', 1900, 0)
    lv.pickup('health', 700, PIT)
    lv.pickup('quickhealth', 2150, PIT)
    lv.pickup('grenadelauncherammo', 1300, PIT, 20, attributes={'ammo': '12'})
    for x in (900, 1400, 1900):
        lv.lamp(x, TOP - 6, 96)
    enemy(lv, 'destroyer', 1500, PIT + 48, image='destroyer1', size=96, mass=150, idname='thedestroyer')
    lv.parts[-1] = lv.parts[-1].replace('targets=""', 'targets="lair_gate,win_msg"', 1)
    messenger(lv, 'win_msg', 1500, 200, 'The destroyer falls. The gate grinds open')

    # Beat four: the gate, and the Harbourmaster's core behind it.
    lv.wall(2200, PIT + 96, TOP)
    lv.door('lair_gate', 2200, PIT, 2232, PIT + 96, lift=96, speed=48)
    lv.lamp(2180, PIT + 102, 64)
    lv.ground(2232, east, PIT)
    lv.ceiling(2232, east, PIT + 224)
    lv.backdrop(2232, PIT, east, PIT + 224)
    lv.enemy('cpu', 2420, PIT + 40, image='cpu', size=48, mass=0, attributes={'health': '100'})
    lv.sign(2300, PIT + 170, "THE HARBOURMASTER'S CORE", 12)
    lv.cash(2300, PIT, 25)
    lv.exit(2540, PIT, '', 'brindlequay/finale')
    return lv


LAIR_WAVES = [(20000, 'vent_msg'), (20000, 'vent_1'), (20600, 'vent_1'), (21200, 'vent_1'),
              (45000, 'vent_2'), (46000, 'vent_2'), (70000, 'vent_1'), (70600, 'vent_1'),
              (71200, 'vent_2'), (95000, 'vent_1'), (95600, 'vent_2')]


def write_waves(directory, name, events, note):
    path = os.path.join(directory, name + '.xml')
    with open(path, 'w') as out:
        out.write('<?xml version="1.0" ?>\n<!-- %s -->\n<waves>\n' % note)
        for time, target in events:
            out.write(' <event time="%d" target="%s"/>\n' % (time, target))
        out.write('</waves>\n')
    return path


def main():
    root = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..', 'maps')
    directory = sys.argv[1] if len(sys.argv) > 1 else root
    for lv in (rooftops(), serverhalls(), destroyerlair()):
        print(os.path.relpath(lv.write(directory)))
    print(os.path.relpath(write_waves(directory, 'destroyerlair_waves', LAIR_WAVES,
                                      "The lair's vents: times are ms after the player steps into the pit.")))


if __name__ == '__main__':
    main()
