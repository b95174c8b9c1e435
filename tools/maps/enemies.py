#!/usr/bin/env python3
"""Writes maps/enemies.xml: an arena run from west to east through five rooms
that meets every kind of enemy at several levels, with a friendly at the
start and pickups between fights, then a short passage (x 5000 to 5200,
floor top y 0, ceiling underside y 240) into the boss wing of bosswing.py.
Re-run after editing; the output is committed.

  python3 tools/maps/enemies.py            # writes into maps/
"""
import os
import sys

from bosswing import boss_wing
from ranges import Level

# Low enough that the player on the floor sees the ceiling.
CEILING = 240
# Deep enough that the sky never shows under the floor.
FLOOR_DEPTH = 480
EXIT_X = 5000
ENEMY = 28


def enemy(lv, kind, x, y, level=1, image=None, size=ENEMY, attributes=None, idname=None, mass=100):
    attrs = {'level': str(level)}
    attrs.update(attributes or {})
    lv.body(kind, x - size / 2, y - size / 2, x + size / 2, y + size / 2,
            'data/images/%s.png' % image if image else '', mass=mass, entity=True, outlined=False,
            tile=False, attributes=attrs, idname=idname)


def grunt(lv, kind, x, y, level, attributes=None):
    # Higher ranks wear their rank marks.
    stem = {'chaingungrunt': 'chaingunenemy', 'plasmagrunt': 'plasmaenemy', 'rocketgrunt': 'rocketenemy',
            'shotgungrunt': 'shotgunenemy', 'meleegrunt': 'meleeenemy', 'sniper': 'sniperenemy'}[kind]
    enemy(lv, kind, x, y, level, '%s%d' % (stem, level), attributes=attributes)


def sign(lv, x, y, text, size=12):
    lv.body('textbody', x, y, x + 300, y + 20, solid=False, entity=True, outlined=False,
            attributes={'text': text, 'font': 'vera', 'size': str(size), 'shadow': 'true'})


def lamp(lv, x, y):
    """A glowing strip under the ceiling."""
    lv.body('detail', x, y, x + 96, y + 8, 'data/images/hazard1.png', solid=False, tile=False,
            attributes={'glow': 'true'})


def room_walls(lv, x0, door_height=120):
    """A wall hanging from the ceiling at x0 with a gap of door_height above the floor."""
    lv.geometry(x0, door_height, x0 + 32, CEILING, 'metal1')


def arena():
    lv = Level('enemies')
    # Floor, ceiling and the closed west wall; the east end stays open.
    lv.geometry(-320, -FLOOR_DEPTH, EXIT_X, 0, 'rock1')
    lv.geometry(-384, -FLOOR_DEPTH, -320, CEILING + 64, 'metal1')
    lv.geometry(-320, CEILING, EXIT_X, CEILING + 64, 'concrete1')
    lv.body('skyinfo', -300, 200, -292, 208, solid=False, entity=True, visible=False, outlined=False,
            attributes={'skies': 'haze,night,lava', 'initialsky': 'haze'})
    lv.spawn(-260, 8)
    lv.spawn(200, 8, 'room1')
    sign(lv, -280, 160, 'ENEMY ARENA - fight your way east', 14)

    # Room 1 (-320..1000): the armoury, a friendly, and the first grunts.
    for i, kind in enumerate(('health', 'armour')):
        lv.pickup(kind, -200 + i * 40)
    for i, w in enumerate(('chaingun', 'shotgun', 'rocketlauncher', 'railgun')):
        lv.pickup(w, -100 + i * 44, attributes={'ammo': '50'})
        lv.pickup(w + 'ammo', -100 + i * 44, 40, 20, attributes={'ammo': '50'})
        lv.geometry(-108 + i * 44, 28, -68 + i * 44, 36, 'techpanel1')
    enemy(lv, 'friendly', -120, 80, 2, 'friendly', idname='buddy', mass=10)
    # The first kills always pay, so new players learn what cash looks like.
    paying = {'cashchance': '100', 'cashmin': '1', 'cashmax': '3'}
    grunt(lv, 'meleegrunt', 420, 40, 1, paying)
    grunt(lv, 'shotgungrunt', 560, 60, 1, paying)
    grunt(lv, 'plasmagrunt', 700, 90, 1, paying)
    grunt(lv, 'chaingungrunt', 860, 60, 2)
    lamp(lv, 300, CEILING - 8)
    lamp(lv, 700, CEILING - 8)
    room_walls(lv, 1000)
    lv.spawn(1060, 8, 'room2')
    lv.pickup('health', 960)

    # Room 2 (1032..2000): rockets, plasma of every rank, a sniper on a
    # ledge and two turrets.
    lv.geometry(1400, 150, 1640, 170, 'techpanel1')
    grunt(lv, 'sniper', 1520, 190, 1)
    grunt(lv, 'rocketgrunt', 1200, 50, 1)
    grunt(lv, 'plasmagrunt', 1300, 110, 3)
    grunt(lv, 'rocketgrunt', 1700, 60, 3)
    grunt(lv, 'shotgungrunt', 1800, 40, 4)
    grunt(lv, 'plasmagrunt', 1900, 100, 2)
    lv.geometry(1260, 140, 1340, 156, 'techpanel1')
    enemy(lv, 'turret', 1300, 172, image='Turret', size=32, mass=0)
    lv.spawn(1240, 8, 'turretview')
    enemy(lv, 'turret', 1960, 16, image='Turret', size=32, mass=0)
    lamp(lv, 1100, CEILING - 8)
    lamp(lv, 1750, CEILING - 8)
    lv.pickup('armour', 1450)
    lv.pickup('chaingunammo', 1500, 0, 20, attributes={'ammo': '50'})
    room_walls(lv, 2000)
    lv.spawn(2060, 8, 'room3')
    lv.spawn(2400, 8, 'light')

    # Room 3 (2032..3000): a search light under the ceiling; when it spots
    # the player the alarm sounds and kamikazes come out of the hatch.
    lv.body('searchlight', 2484, CEILING - 32, 2516, CEILING, 'data/images/searchlight.png', entity=True, mass=0,
            outlined=False, tile=False, idname='lamp',
            attributes={'startangle': '0', 'endangle': '45', 'minangle': '-45', 'speed': '30',
                        'conewidth': '56', 'conelength': '250', 'untriggertimer': '4000',
                        'timepaused': '800'})
    lv.parts[-1] = lv.parts[-1].replace('targets=""', 'targets="alarm,hatch"', 1)
    lv.body('messagebody', 2300, 10, 2308, 18, solid=False, entity=True, visible=False, outlined=False,
            idname='alarm', attributes={'message': 'Alarm! Kamikazes released'})
    lv.body('spawner', 2860, 170, 2876, 186, solid=False, entity=True, visible=False, outlined=False,
            idname='hatch', attributes={'spawnedtype': 'kamikazegrunt', 'spawnlevel': '2', 'maxalive': '2',
                                        'maxspawned': '4', 'spawndelay': '1500'})
    lv.geometry(2840, 194, 2900, 206, 'grate1')
    enemy(lv, 'kamikazegrunt', 2250, 60, 1, 'kamikazeenemy1')
    enemy(lv, 'kamikazegrunt', 2700, 80, 2, 'kamikazeenemy2')
    grunt(lv, 'chaingungrunt', 2600, 50, 3)
    lv.pickup('health', 2150)
    lv.pickup('shotgunammo', 2190, 0, 20, attributes={'ammo': '50'})
    room_walls(lv, 3000)
    lv.spawn(3060, 8, 'room4')

    # Room 4 (3032..4000): the breeders.
    enemy(lv, 'spawnergrunt', 3400, 120, 1, 'spawnerenemy1', size=32,
          attributes={'spawntype': 'meleegrunt', 'spawnlevel': '2', 'maxalive': '3', 'spawndelay': '2500'})
    enemy(lv, 'egglayer', 3750, 150, 1, 'egglayerenemy1', size=32,
          attributes={'spawnlevel': '1', 'maxalive': '2', 'spawndelay': '4000'})
    grunt(lv, 'rocketgrunt', 3900, 60, 2)
    lv.geometry(3560, 120, 3640, 136, 'techpanel1')
    enemy(lv, 'turret', 3600, 152, image='Turret', size=32, mass=0)
    lamp(lv, 3300, CEILING - 8)
    lv.pickup('megahealth', 3200)
    lv.pickup('rocketlauncherammo', 3240, 0, 20, attributes={'ammo': '20'})
    room_walls(lv, 4000)
    lv.spawn(4060, 8, 'room5')

    # Room 5 (4032..5000): the veterans, then the open passage east.
    grunt(lv, 'chaingungrunt', 4200, 60, 4)
    grunt(lv, 'plasmagrunt', 4350, 120, 5)
    grunt(lv, 'shotgungrunt', 4500, 40, 5)
    grunt(lv, 'meleegrunt', 4600, 80, 5)
    grunt(lv, 'rocketgrunt', 4750, 100, 5)
    grunt(lv, 'chaingungrunt', 4850, 60, 5)
    grunt(lv, 'sniper', 4650, 200, 3)
    lv.geometry(4560, 170, 4760, 186, 'techpanel1')
    lamp(lv, 4300, CEILING - 8)
    lamp(lv, 4800, CEILING - 8)
    lv.pickup('health', 4100)
    lv.pickup('armour', 4140)
    sign(lv, 4700, 200, 'The boss wing lies east', 12)

    # The passage into the boss wing; the sky turns to lava glow on the way.
    lv.geometry(EXIT_X, -FLOOR_DEPTH, 5200, 0, 'rock1')
    lv.geometry(EXIT_X, CEILING, 5200, CEILING + 64, 'concrete1')
    lv.body('skytransition', 5080, 0, 5120, CEILING, solid=False, entity=True, visible=False, outlined=False,
            idname='sky_to_lava', attributes={'sky': 'lava', 'triggeronce': 'true'})
    lv.parts.extend(boss_wing(standalone=False).parts)
    return lv


def main():
    root = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..', 'maps')
    directory = sys.argv[1] if len(sys.argv) > 1 else root
    print(os.path.relpath(arena().write(directory)))


if __name__ == '__main__':
    main()
