#!/usr/bin/env python3
"""Writes Act 1 of the adventure: maps/quay.xml (the stopped crane yard,
crossed by hook), maps/armoury.xml (the Pier One armoury, one gun at a
time) and maps/stores.xml (the flooded stores on the lower quay). Re-run
after editing; the output is committed.

  python3 tools/maps/act1.py            # writes into maps/
"""
import os
import sys

from places import Place

def quay():
    """Tock's shed, the quay, a dry dock under a gantry, the crane basin, the
    yard with the first drone, and the broken pier to the armoury door."""
    lv = Place('quay', 'quay')
    lv.sky('haze,night', 'haze', music='quay')
    lv.bookends(-512, 3524, bottom=-680)

    # The maintenance shed: closed to the west, a door east.
    lv.room(-480, -120, 0, 176, doors=(0, 96))
    lv.lamp(-340, 170, 96)
    lv.lamp(-136, 100, 16)
    lv.spawn(-440, 8)
    lv.message(-430, 0, 'Walk: $bind:+moveleft / $bind:+moveright', width=32)
    lv.message(-300, 0, 'Jump: $bind:+moveup', width=32)
    lv.crate(-240, 0, 24, mass=0)
    lv.sign(-460, 120, "TOCK'S SHED", 12)

    # The quay: crates to hop, a stack to climb by steps.
    lv.ground(-88, 560, 0)
    lv.crate(60, 0, 32, mass=0)
    lv.crate(220, 0, 32, mass=0)
    lv.crate(252, 0, 32, mass=0)
    lv.crate(252, 32, 32, mass=0)
    lv.crate(284, 0, 32, mass=0)
    lv.crate(284, 32, 32, mass=0)
    lv.cash(296, 64)
    lv.sign(-40, 150, 'PIER ONE ->', 14)

    lv.spawn(440, 8, 'dock')
    # Beat one: a dry dock with steps down and up, under a gantry beam.
    # Falling in costs a walk; the hook carries you over.
    dock_floor = -96
    lv.ground(560, 800, dock_floor)
    lv.backdrop(560, dock_floor, 800, 0, 'ground')
    lv.stairs(680, dock_floor, 6, direction=-1, run=20)
    lv.stairs(680, dock_floor, 6, direction=1, run=20)
    for x in (540, 804):
        lv.detail(x, 0, x + 16, 216, 'metal1')
    lv.beam(540, 820, 200)
    lv.lamp(640, 194, 48)
    lv.message(470, 0, 'Hook the beam: $bind{+fire 1}',
               width=40, height=96)

    lv.spawn(1000, 8, 'basin')
    # Beat two: the crane basin, too wide to jump; a crane jib over it.
    lv.ground(800, 1100, 0)
    basin_floor = -160
    lv.ground(1100, 1460, basin_floor)
    lv.water(1100, 1460, basin_floor, -100)
    # Steps back up on the near side only: a fall means another try, and
    # the far wall stands too high above the water to climb.
    lv.stairs(1220, basin_floor, 5, direction=-1, rise=32, run=24)
    lv.ground(1460, 1600, 0)
    lv.detail(1540, 0, 1572, 280, 'metal1')       # crane tower, walked past in front
    lv.beam(1120, 1620, 280)                     # jib
    lv.detail(1572, 240, 1600, 280, 'hazard1')
    lv.ledge(1240, 1320, 200, hang=280)
    lv.cash(1270, 200, 25)
    lv.pickup('health', 1500, 0)
    lv.effect(1300, -150, 'bubbles')
    lv.message(1000, 0, 'Too wide to jump: hook the jib', width=40, height=96)

    lv.spawn(1620, 8, 'yard')
    # Beat three: the yard. A practice target first, then the first drone.
    lv.ground(1600, 2320, 0)
    lv.wall(1600, 160, 360, kind='wall')
    lv.ceiling(1600, 2320, 360)
    lv.backdrop(1632, 0, 2320, 360)
    lv.lamp(1800, 354, 96)
    lv.lamp(2100, 354, 96)
    lv.message(1660, 0, 'Aim with the mouse, fire: $bind:+attack', width=40, height=96)
    lv.practice_target(1820, health=40)
    lv.crate(1980, 0, 32, mass=0)
    lv.grunt('meleegrunt', 2120, 0, 1, {'cashchance': '100', 'cashmin': '2', 'cashmax': '4'})
    lv.pickup('health', 2230, 0)
    lv.checkpoint(2280, 0)

    lv.spawn(2340, 8, 'pier')
    # Beat four: the broken pier. Hook from beam to beam over the water
    # while a turret on the armoury wall fires at you.
    pier_floor = -200
    lv.block(2320, 300, 2352, 424, 'wall')
    lv.ground(2320, 3200, pier_floor)
    lv.water(2400, 3200, pier_floor, -120)
    lv.ceiling(2320, 3200, 300, 32)
    for x0, x1 in ((2320, 2400), (2620, 2700), (2920, 3000)):
        lv.block(x0, -200, x1, 0, 'deck')
        lv.hazard_strip(x0, x1, 0, 4)
    # A fall climbs back to the post it left from.
    for x in (2400, 2700, 3000):
        lv.stairs(x + 128, pier_floor, 8, direction=-1, rise=25, run=16)
    for x0 in (2410, 2710, 3010):
        lv.detail(x0 + 84, 276, x0 + 96, 300, 'metal1')
        lv.beam(x0, x0 + 180, 260)
    lv.pickup('armour', 2950, 0)
    lv.cash(2650, 0)
    lv.ground(3200, 3524, 0)
    lv.ledge(3396, 3460, 200)
    lv.turret(3428, 200)
    lv.message(2330, 0, 'Swing from beam to beam', width=40, height=96)

    # The armoury door: a tall wall with a lit doorway.
    lv.wall(3460, 0, 420, 64)
    lv.block(3200, 300, 3460, 420, 'wall')
    lv.lamp(3380, 140, 64)
    lv.sign(3300, 170, 'PIER ONE ARMOURY', 14)
    lv.exit(3410, 0, 'armoury', 'brindlequay/pierone')
    return lv

def armoury():
    """Pier One armoury: the shotgun on its rack and a firing lane, the
    brawlers' hall, a door opened from a hooked gantry, and the long gallery."""
    lv = Place('armoury', 'armoury')
    lv.sky('night', 'night', music='quay')
    lv.bookends(-32, 3632)
    H = 224

    # The entry hall, and the rack with the shotgun.
    lv.room(0, 2400, 0, H, doors=(0, None))
    lv.spawn(40, 8)
    lv.lamp(120, H - 6, 96)
    lv.lamp(420, H - 6, 96)
    lv.message(60, 0, 'Quick save: $bind{savegame quicksave}', width=32)
    lv.sign(80, 150, 'PIER ONE ARMOURY - RANGE', 12)
    lv.block(280, 28, 360, 36, 'beam')
    lv.weapon('shotgun', 300, 0, 24)
    lv.pickup('shotgunammo', 330, 0, 20, attributes={'ammo': '12'})
    lv.message(380, 0, 'Change gun: $bind:nextweap / $bind:prevweap', width=32)

    lv.spawn(440, 8, 'range')
    # Beat one: the firing lane: targets on brackets, a low rail to hop.
    lv.hazard_strip(520, 1100, 0, 4)
    lv.block(600, 0, 616, 24, 'beam')
    for x, hp in ((760, 40), (900, 60), (1040, 80)):
        lv.practice_target(x, 40 + (x - 760) // 4, hp)
    lv.block(1100, 56, 1132, H, 'wall')
    lv.lamp(1080, 50, 16)

    lv.spawn(1160, 8, 'hall')
    # Beat two: the brawlers' hall, one drone, then a pair.
    # A walkway over the hall; the shotgunner holds it.
    lv.grunt('meleegrunt', 1300, 0, 1)
    lv.grunt('meleegrunt', 1560, 0, 1)
    lv.stairs(1380, 0, 3, rise=24, run=24)
    lv.block(1452, 56, 1660, 72, 'deck')
    for x in (1470, 1640):
        lv.detail(x, 0, x + 8, 56, 'metal1')
    lv.grunt('shotgungrunt', 1600, 72, 1)
    lv.cash(1620, 72)
    lv.pickup('health', 1720, 0)
    lv.pickup('shotgunammo', 1750, 0, 20, attributes={'ammo': '12'})
    lv.lamp(1400, H - 6, 96)

    lv.spawn(1700, 8, 'shutter')
    # Beat three: the shutter. Its switch sits on a gantry that only the hook reaches.
    lv.block(1900, 48, 1932, H, 'wall')
    lv.door('shutter', 1900, 0, 1932, 48, lift=120, speed=80)
    lv.ledge(1780, 1880, 150, hang=H)
    lv.switch(1850, 150, 'shutter_group')
    lv.body('targetgroup', 1840, 120, 1848, 128, solid=False, entity=True, visible=False, outlined=False,
            idname='shutter_group', targets='shutter,shutter_msg')
    lv.body('messengerbody', 1848, 120, 1856, 128, solid=False, entity=True, visible=False, outlined=False,
            idname='shutter_msg', attributes={'message': 'The shutter rolls up'})
    lv.beam(1760, 1900, 200)
    lv.message(1770, 0, 'The switch is up there: hook it', width=32)
    lv.lamp(1860, 176, 40)
    lv.sound(1880, 100, 'world/hum.wav', 50)
    lv.cash(1800, 150)

    # Behind the shutter: the plasma gun, then a turret behind crates.
    lv.weapon('plasmagun', 1980, 0, 40)
    # A step up onto a stack wide enough to stand on: the place to shoot
    # the turret from, and two crates high is more than a jump.
    lv.crate(2088, 0, 32, mass=0)
    for x in (2120, 2152):
        lv.crate(x, 0, 32, mass=0)
        lv.crate(x, 32, 32, mass=0)
    lv.turret(2300, 0)
    lv.pickup('health', 2360, 0)
    lv.checkpoint(2380, 0)

    lv.spawn(2420, 8, 'gallery')
    # Beat four: the long gallery, a raised walk and a mixed squad.
    lv.room(2432, 3600, 0, 280, doors=(None, 0))
    lv.block(2400, 224, 2432, 344, 'wall')
    lv.backdrop(2400, 0, 2432, 224)
    lv.stairs(2700, 0, 4, rise=24, run=32)
    lv.block(2828, 72, 3100, 96, 'deck')
    lv.stairs(3228, 0, 4, direction=-1, rise=24, run=32)
    lv.grunt('plasmagrunt', 2950, 96, 1)
    lv.grunt('shotgungrunt', 3300, 0, 2)
    lv.grunt('meleegrunt', 2600, 0, 2)
    lv.turret(3450, 0)
    lv.pickup('plasmagunammo', 2980, 96, 20, attributes={'ammo': '40'})
    lv.pickup('health', 3520, 0)
    lv.cash(2500, 0, 25)
    for x in (2600, 2950, 3300):
        lv.lamp(x, 274, 96)
    lv.sign(3400, 200, 'LIFT TO THE LOWER QUAY', 12)
    lv.exit(3540, 0, 'stores', 'brindlequay/lowerquay')
    return lv

def stores():
    """The stores on the lower quay, half under water: a shallow pool with the
    chaingun, a hall of tanks under a sniper's shelf, a deep cistern crossed
    by hook, and the flooded aisle out to the signal house."""
    lv = Place('stores', 'stores')
    lv.sky('haze,night', 'night', music='quay')
    lv.bookends(-32, 3732, bottom=-700)
    H = 256

    # The lift foot and the stair down into the stores.
    lv.room(0, 320, 96, 192, doors=(0, None))
    lv.spawn(40, 104)
    lv.lamp(100, 282, 96)
    lv.sign(40, 220, 'LOWER QUAY STORES', 12)
    lv.stairs(496, 0, 6, direction=-1, rise=16, run=24)
    # The hall: one ceiling, dry floor between the pools below.
    lv.ceiling(320, 3732, H)
    lv.wall(3700, 0, H)
    lv.backdrop(352, 0, 3700, H)
    for x0, x1 in ((320, 500), (760, 1040), (1480, 1860), (2300, 2560), (3400, 3732)):
        lv.ground(x0, x1, 0)
    lv.block(320, 192 + 96, 352, H + 64, 'wall')
    lv.backdrop(320, 96, 352, 288)
    lv.message(200, 96, 'Flooded. Swim up: $bind:+moveup', width=32, height=80)

    lv.spawn(420, 8, 'pool')
    # Beat one: a shallow pool and the chaingun on a dry crate.
    lv.ground(500, 760, -40)
    lv.water(500, 760, -40, -8)
    lv.stairs(712, -40, 2, rise=20, run=24)
    lv.crate(600, -40, 32, mass=0)
    lv.weapon('chaingun', 604, -8, 60)
    lv.pickup('chaingunammo', 660, -40, 20, attributes={'ammo': '60'})
    lv.message(420, 0, 'Chaingun: hold $bind:+attack', width=32)
    for x in (880, 960):
        lv.practice_target(x)

    lv.spawn(900, 8, 'tanks')
    # Beat two: tanks and a pair of plasma drones; a sniper on the shelf
    # shows its aim line before it fires.
    lv.ground(1040, 1480, -96)
    lv.water(1040, 1480, -96, -16)
    lv.stairs(1480 - 96, -96, 4, rise=24, run=24)
    # Level with the floor: from the water a swimmer climbs out onto it.
    lv.block(1160, -96, 1240, 0, 'deck')
    lv.grunt('plasmagrunt', 1200, 0, 1)
    lv.grunt('plasmagrunt', 1560, 0, 1)
    lv.ledge(1600, 1760, 160, hang=H)
    lv.grunt('sniper', 1700, 160, 1)
    lv.message(1000, 0, 'Sniper: keep out of its aim line', width=32)
    lv.pickup('health', 1520, 0)
    lv.pickup('chaingunammo', 1550, 0, 20, attributes={'ammo': '60'})
    lv.lamp(1200, H - 6, 96)
    lv.lamp(1650, H - 6, 96)

    lv.spawn(1780, 8, 'cistern')
    # Beat three: the cistern, too deep to wade and too wide to jump,
    # with beams to hook; rocket drones fire from the far side.
    lv.ground(1860, 2300, -220)
    lv.water(1860, 2300, -220, -120)
    lv.stairs(1860 + 160, -220, 8, direction=-1, rise=27.5, run=20)
    for x0 in (1920, 2120):
        lv.beam(x0, x0 + 120, 200)
        lv.detail(x0 + 56, 216, x0 + 64, H, 'metal1')
    lv.grunt('rocketgrunt', 2420, 0, 1)
    lv.cash(2060, 200, 25)
    lv.effect(2280, 200, 'steam')
    lv.effect(2000, -200, 'bubbles')
    lv.sound(2080, 0, 'world/hum.wav', 40)
    lv.pickup('armour', 2360, 0)
    lv.pickup('health', 2400, 0)
    lv.checkpoint(2480, 0)
    lv.message(1780, 0, 'Too deep to wade: hook the beams', width=32)

    lv.spawn(2500, 8, 'aisle')
    # Beat four: the flooded aisle. The shelf trigger wakes the kamikaze
    # hatch; run the aisle under fire to the door.
    lv.ground(2560, 3400, -64)
    lv.water(2560, 3400, -64, -16)
    lv.stairs(3400 - 64, -64, 2, rise=32, run=32)
    # Stepping stones a swimmer can climb: no higher than the floor.
    for x in (2700, 2950, 3200):
        lv.block(x, -64, x + 48, 0, 'deck')
    lv.body('trigger', 2560, 0, 2580, H, solid=False, entity=True, visible=False, outlined=False,
            targets='hatch,hatch_msg', attributes={'triggeronce': 'true'})
    lv.body('messengerbody', 2584, 10, 2592, 18, solid=False, entity=True, visible=False, outlined=False,
            idname='hatch_msg', attributes={'message': 'A hatch bangs open above!'})
    lv.body('spawner', 3180, 200, 3196, 216, solid=False, entity=True, visible=False, outlined=False,
            idname='hatch', attributes={'spawnedtype': 'kamikazegrunt', 'spawnlevel': '1', 'maxalive': '2',
                                        'maxspawned': '4', 'spawndelay': '2500'})
    lv.block(3160, 224, 3220, 236, 'deck')
    lv.lamp(3170, 218, 40)
    # Level 2: a level-1 chaingunner carries 2000 health, a boss's share.
    lv.grunt('chaingungrunt', 3500, 0, 2)
    lv.pickup('health', 3560, 0)
    lv.cash(3600, 0, 25)
    lv.sign(3500, 200, 'TO THE SIGNAL HOUSE', 12)
    lv.lamp(3600, H - 6, 64)
    lv.exit(3640, 0, 'signalhouse', 'brindlequay/stores')
    return lv

def main():
    root = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..', 'maps')
    directory = sys.argv[1] if len(sys.argv) > 1 else root
    for lv in (quay(), armoury(), stores()):
        print(os.path.relpath(lv.write(directory)))

if __name__ == '__main__':
    main()
