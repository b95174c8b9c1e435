#!/usr/bin/env python3
"""The boss wing of maps/enemies.xml: a run from an entry corridor at x 5200
(floor top at y 0) through electric hazards, a bio lab of bacteria and eggs,
a mine field, a server room whose objectives engineers repair, the block
boss arena and the destroyer hall to the exit. tools/maps/enemies.py joins
it onto the arena. Run on its own it writes a standalone wing (with a
player start, a sky and a wall closing the corridor) for trying out rooms:

  python3 tools/maps/bosswing.py /tmp     # writes /tmp/bosswing.xml
"""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from ranges import Level, fmt, TILE  # noqa: E402

FLOOR = 0
CEILING = 480
DOORWAY = 176


class Wing(Level):
    def body(self, kind, x0, y0, x1, y1, texture='', mass=0, solid=True, entity=False, visible=True,
             outlined=True, colour='255,255,255,255', tile=True, attributes=None, idname=None, zshift=0,
             targets='', comment=None):
        before = len(self.parts)
        Level.body(self, kind, x0, y0, x1, y1, texture, mass, solid, entity, visible, outlined, colour, tile,
                   attributes, idname)
        text = self.parts[before]
        text = text.replace('z-shift="0"', 'z-shift="%s"' % fmt(zshift), 1)
        text = text.replace('targets=""', 'targets="%s"' % targets, 1)
        if comment:
            text = '  <!-- %s -->\n' % comment + text
        self.parts[before] = text

    def backdrop(self, x0, x1, texture, colour='120,120,140,255'):
        self.body('detail', x0, FLOOR, x1, CEILING, 'data/images/%s.png' % texture, solid=False, entity=True,
                  outlined=False, colour=colour, zshift=-0.5)

    def enemy(self, kind, x, y, size, image, mass=50, attributes=None, idname=None, targets='', comment=None):
        half = size / 2.0
        self.body(kind, x - half, y - half, x + half, y + half, 'data/images/%s.png' % image, mass=mass,
                  entity=True, outlined=False, tile=False, attributes=attributes, idname=idname, targets=targets,
                  comment=comment)

    def point(self, idname, x, y=8):
        self.body('namedpoint', x - 8, y, x + 8, y + 16, solid=False, entity=True, visible=False, outlined=False,
                  idname=idname)

    def lintel(self, x, width=64):
        """A wall hanging from the ceiling down to the doorway between rooms."""
        self.geometry(x, DOORWAY, x + width, CEILING, 'metal1')


def boss_wing(standalone=True):
    lv = Wing('bosswing')
    west, east = 5200, 11760
    lv.parts.append('  <!-- The boss wing. Geometry starts at x 5200; the entry corridor floor top is at y 0. -->')

    # Shell: a floor deep enough that the sky never shows under it, the
    # ceiling, the east wall; the west cap closes the corridor when the wing
    # is played on its own.
    lv.geometry(west, -480, east, FLOOR, 'rock1')
    lv.geometry(west, CEILING, east, CEILING + 64, 'concrete1')
    if standalone:
        lv.body('default', west, FLOOR, west + 32, CEILING, 'data/images/metal1.png', idname='bosswing_westcap',
                comment='Standalone only: closes the entry corridor.')
    else:
        # Joined: only the wall above the low entry corridor.
        lv.geometry(west, 240, west + 32, CEILING, 'metal1')
    lv.geometry(east - 64, FLOOR, east, CEILING, 'metal1')

    # Backdrops, one look per room.
    for x0, x1, tex in ((west, 5600, 'concrete2'), (5600, 6640, 'techpanel2'), (6640, 7640, 'rock2'),
                        (7640, 8240, 'concrete2'), (8240, 9040, 'techpanel1'), (9040, 10240, 'metal1'),
                        (10240, 11440, 'rock2'), (11440, east, 'techpanel1')):
        lv.backdrop(x0, x1, tex)

    # --- Entry corridor: supplies before the fights.
    if standalone:
        lv.spawn(5300, 8)
        lv.body('skyinfo', 5240, 300, 5256, 316, solid=False, entity=True, visible=False, outlined=False,
                idname='bosswing_skies', attributes={'skies': 'night,lava', 'initialsky': 'night'},
                comment='Standalone only: the sky.')
    lv.geometry(west + 32, 240, 5600, CEILING, 'concrete1')
    lv.pickup('health', 5360)
    lv.pickup('armour', 5400)
    lv.pickup('rocketlauncher', 5440, attributes={'ammo': '20'})
    lv.pickup('rocketlauncherammo', 5480, 0, 20, attributes={'ammo': '20'})
    lv.pickup('shotgun', 5520, attributes={'ammo': '30'})
    lv.pickup('shotgunammo', 5560, 0, 20, attributes={'ammo': '30'})

    # --- Electric hall: two timed grids across the way, a tower on a plinth
    # and a ball of death dropping through the passage.
    lv.point('hazards', 5700)
    lv.lintel(5600)
    for i, (x, on) in enumerate(((5800, 'true'), (5920, 'false'))):
        lv.body('electrogrid', x, FLOOR, x + 16, DOORWAY + 48, 'data/images/grate1.png', solid=False,
                entity=True, outlined=False, tile=True, idname='grid_%d' % (i + 1),
                attributes={'on': on, 'pain': '15', 'timeon': '1600', 'timeoff': '1400', 'glow': 'true'},
                comment='Grid %d: on 1.6 s, off 1.4 s.' % (i + 1) if i == 0 else None)
    lv.body('electrogrid', 6140, 300, 6400, 316, 'data/images/grate1.png', solid=False, entity=True,
            outlined=False, idname='grid_fatal',
            attributes={'on': 'true', 'fatal': 'true', 'timeon': '0', 'timeoff': '0', 'glow': 'true'},
            comment='A fatal grid over the plinth: never off, keep low.')
    lv.geometry(6240, FLOOR, 6304, 48, 'metal2')
    lv.enemy('electrotower', 6272, 48 + 24, 48, 'electrotower1', mass=0, idname='tower')
    lv.enemy('ballofdeath', 6520, 380, 40, 'ballofdeath', mass=0, idname='ball',
             attributes={'openoffset': '0,-340', 'speed': '220', 'timeopen': '700'},
             comment='Drops to the floor and rises again.')
    lv.pickup('health', 6580)

    # --- Bio lab: bacteria that split, eggs that hatch.
    lv.point('biolab', 6800)
    lv.lintel(6640)
    for x, y, level in ((6900, 140, 1), (7100, 220, 1), (7300, 160, 3)):
        lv.enemy('bacteria', x, y, 28, 'bacteria%d' % level, attributes={'level': str(level)})
    for x, level in ((6980, 1), (7180, 2), (7420, 1)):
        lv.enemy('egg', x, FLOOR + 12, 24, 'egg%d' % level, mass=10, attributes={'level': str(level)})
    lv.geometry(7000, 260, 7200, 284, 'techpanel1')
    lv.pickup('quickhealth', 7090, 284)
    lv.pickup('plasmagun', 7560, attributes={'ammo': '40'})

    # --- Mine field: jump the mines or set them off from afar.
    # The node stands clear of the first mine's 96-unit reach.
    lv.point('minefield', 7680)
    lv.lintel(7640)
    for x in (7800, 7900, 8010, 8120):
        lv.enemy('proxygrenade', x, FLOOR + 8, 16, 'proxygrenade', mass=10)
    lv.geometry(7880, 96, 8000, 112, 'metal2')
    lv.enemy('proxygrenade', 7940, 120, 16, 'proxygrenade', mass=10)
    lv.pickup('grenadelauncher', 7720, attributes={'ammo': '15'})
    lv.pickup('armour', 8180)

    # --- Server room: destroy the drive and the processor; each opens one
    # of the two field doors. Engineers keep them patched up.
    lv.point('servers', 8300)
    lv.lintel(8240)
    lv.enemy('harddrive', 8480, FLOOR + 24, 48, 'harddrive', mass=0, idname='drive', targets='server_door_1',
             attributes={'health': '150'})
    lv.geometry(8700, FLOOR, 8780, 40, 'metal2')
    lv.enemy('cpu', 8740, 40 + 24, 48, 'cpu', mass=0, idname='processor', targets='server_door_2',
             attributes={'health': '150'})
    lv.enemy('engineer', 8560, 200, 32, 'engineerenemy', idname='engineer_1')
    lv.enemy('engineer', 8820, 220, 32, 'engineerenemy', idname='engineer_2')
    for i, x in enumerate((8920, 8976)):
        lv.body('alphadoor', x, FLOOR, x + 24, DOORWAY, 'data/images/hazard1.png', entity=True,
                idname='server_door_%d' % (i + 1), attributes={'triggeronce': 'true', 'timeopen': '1000'})
    lv.pickup('rocketlauncherammo', 8320, 0, 20, attributes={'ammo': '20'})

    # --- Block boss arena: push the block whose colour matches the boss's
    # glow into it. Reinforcements drop from the ceiling every 20 s.
    lv.point('blockboss', 9100)
    lv.lintel(9040)
    # Not named after the room: "warpto blockboss" must find the point, not the boss.
    lv.enemy('blockboss', 9800, 260, 128, 'blockboss1', mass=150, idname='theblockboss',
             attributes={'adds1': 'boss_adds_1', 'adds2': 'boss_adds_2', 'arenaleft': '9040',
                         'arenaright': '10240'})
    for i, (x, blocktype) in enumerate(((9200, 0), (9300, 1), (9400, 2), (9560, 0), (9660, 1), (9760, 2),
                                        (10000, 0), (10100, 1))):
        lv.body('bossblock', x, FLOOR, x + 48, FLOOR + 48, 'data/images/bossblock%d.png' % (blocktype + 1),
                mass=20, entity=True, tile=False, attributes={'blocktype': str(blocktype)})
    for i, (kind, level) in enumerate((('swarmer', '2'), ('bacteria', '4'))):
        lv.body('spawner', 9500 + 500 * i, 420, 9516 + 500 * i, 436, solid=False, entity=True, visible=False,
                outlined=False, idname='boss_adds_%d' % (i + 1),
                attributes={'spawnedtype': kind, 'spawnlevel': level, 'maxalive': '3', 'maxspawned': '30',
                            'spawndelay': '900'})
    lv.pickup('health', 9120)
    lv.pickup('megahealth', 10180)

    # --- Destroyer hall.
    lv.point('destroyer', 10300)
    lv.lintel(10240)
    # As the boss: the point keeps the room's name.
    lv.enemy('destroyer', 10900, 220, 96, 'destroyer1', mass=150, idname='thedestroyer')
    lv.geometry(10600, 200, 10700, 216, 'metal2')
    lv.geometry(11100, 200, 11200, 216, 'metal2')
    lv.pickup('armour', 10640, 216)
    lv.pickup('health', 11140, 216)
    lv.pickup('rocketlauncherammo', 10400, 0, 20, attributes={'ammo': '20'})

    # --- Exit.
    lv.point('exit', 11500)
    lv.lintel(11440)
    lv.body('levelchange', 11640, FLOOR, 11672, 48, 'data/images/techpanel2.png', solid=False, entity=True,
            idname='bosswing_exit', attributes={'leveltarget': 'test', 'targetspawn': 'start', 'glow': 'true',
                                                'iscutscene': 'true', 'cutscene': 'brindlequay/finale'})
    return lv


def main():
    if len(sys.argv) < 2:
        sys.exit('usage: bosswing.py DIRECTORY (the shipped wing is part of maps/enemies.xml)')
    print(os.path.relpath(boss_wing().write(sys.argv[1])))


if __name__ == '__main__':
    main()
