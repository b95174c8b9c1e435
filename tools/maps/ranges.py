#!/usr/bin/env python3
"""Writes the two practice levels, maps/weapons.xml (a firing range) and
maps/pickups.xml (a walk past every pickup). Re-run after editing; the
output is committed.

  python3 tools/maps/ranges.py            # writes into maps/
"""
import os
from xml.sax.saxutils import escape
import sys

TILE = 64.0


def fmt(v):
    return ('%.3f' % v).rstrip('0').rstrip('.')


class Level:
    def __init__(self, name):
        self.name = name
        # Shown in the save lists; without one the game uses the name.
        self.title = None
        self.parts = []
        self.count = {}

    def _id(self, kind):
        self.count[kind] = self.count.get(kind, 0) + 1
        return '%s_%d' % (kind, self.count[kind])

    def body(self, kind, x0, y0, x1, y1, texture='', mass=0, solid=True, entity=False, visible=True,
             outlined=True, colour='255,255,255,255', tile=True, attributes=None, idname=None):
        idname = idname or self._id(kind)
        params = ('targets="" solid="%s" entity="%s" outlined="%s" outlinecolour="0,0,0,255" outlinewidth="1" '
                  'texhscale="1" texhshift="0" texvscale="1" texvshift="0" texrotate="0" texture="%s" '
                  'textured="%s" visible="%s" z-shift="0" mass="%s"') % (
            str(solid).lower(), str(entity).lower(), str(outlined).lower(), texture,
            'true' if texture else 'false', str(visible).lower(), fmt(mass))
        verts = []
        for (x, y), (u, v) in zip(((x0, y0), (x1, y0), (x1, y1), (x0, y1)),
                                  ((0, 0), (1, 0), (1, 1), (0, 1))):
            if tile:
                u, v = x / TILE, y / TILE
            shade = colour if y == y1 else ','.join(str(int(c) * 94 // 100) if i < 3 else c
                                                    for i, c in enumerate(colour.split(',')))
            verts.append('    <v origin="%s,%s" colour="%s" texcoords="%s,%s"/>' % (
                fmt(x), fmt(y), shade, fmt(u), fmt(v)))
        text = '  <P type="%s" idname="%s">\n   <params %s/>\n   <verts>\n%s\n   </verts>\n' % (
            kind, idname, params, '\n'.join(verts))
        if attributes:
            text += '   <attributes>\n%s\n   </attributes>\n' % '\n'.join(
                '    <a name="%s" value="%s"/>' % kv for kv in attributes.items())
        self.parts.append(text + '  </P>')

    def geometry(self, x0, y0, x1, y1, texture):
        self.body('default', x0, y0, x1, y1, 'data/images/%s.png' % texture)

    def crate(self, x, y, size, mass=20):
        self.body('default', x, y, x + size, y + size, 'data/images/metal2.png', mass=mass)

    def pickup(self, kind, x, y=0, size=24, attributes=None):
        image = {'cashpickup': 'cash'}.get(kind, kind)
        self.body(kind, x, y, x + size, y + size, 'data/images/%s.png' % image, solid=False, entity=True,
                  outlined=False, tile=False, attributes=attributes)

    def target(self, x, y=0, w=24, h=40, health=60):
        self.body('target', x, y, x + w, y + h, 'data/images/techpanel2.png', entity=True,
                  colour='255,170,150,255', tile=False, attributes={'health': str(health)})

    def spawn(self, x, y, idname='start'):
        self.body('spawnpoint', x, y, x + 16, y + 16, solid=False, entity=True, visible=False, outlined=False,
                  colour='255,255,255,60', attributes={'startpoint': 'true'} if idname == 'start' else None,
                  idname=idname)

    def exit(self, x, y, target, cutscene):
        """The level's way out: a glowing panel that plays a cut scene on its way to the next level."""
        self.body('levelchange', x, y, x + 32, y + 48, 'data/images/techpanel2.png', solid=False, entity=True,
                  colour='241,241,241,255', tile=False, idname='exit',
                  attributes={'leveltarget': target, 'targetspawn': 'start', 'iscutscene': 'true',
                              'cutscene': cutscene})

    def shell(self, x0, x1, ceiling):
        self.geometry(x0, -64, x1, 0, 'rock1')
        self.geometry(x0 - 64, -64, x0, ceiling + 64, 'metal1')
        self.geometry(x1, -64, x1 + 64, ceiling + 64, 'metal1')
        self.geometry(x0, ceiling, x1, ceiling + 64, 'concrete1')

    def write(self, directory):
        path = os.path.join(directory, self.name + '.xml')
        with open(path, 'w') as out:
            title = ' title="%s"' % escape(self.title, {'"': '&quot;'}) if self.title else ''
            out.write('<?xml version="1.0" ?>\n<level name="%s"%s>\n <Objects>\n' % (self.name, title))
            out.write('\n'.join(self.parts))
            out.write('\n </Objects>\n</level>\n')
        return path


WEAPONS = ['plasmagun', 'shotgun', 'chaingun', 'grenadelauncher', 'rocketlauncher', 'railgun', 'lightninggun']


def weapons_range():
    lv = Level('weapons')
    lv.shell(-640, 2400, 720)
    lv.spawn(-600, 8)
    # The armoury by the start: every gun and a box of its ammo.
    for i, w in enumerate(WEAPONS):
        lv.pickup(w, -540 + i * 56, attributes={'ammo': '25'})
        lv.pickup(w + 'ammo', -540 + i * 56, 40, 20, attributes={'ammo': '25'})
        lv.geometry(-548 + i * 56, 28, -508 + i * 56, 36, 'techpanel1')
    # Targets at short range, a crate stack to push, a row of three for the
    # railgun, then walls at growing distances for the traces.
    # "warpto range" puts the player right in front of the first targets.
    lv.spawn(24, 0, 'range')
    for x in (80, 200, 320):
        lv.target(x)
    for level in range(4):
        lv.crate(460, level * 32, 32)
        lv.crate(496, level * 32, 32)
    for x in (700, 740, 780):
        lv.target(x, health=120)
    lv.geometry(1000, 0, 1032, 96, 'concrete1')
    lv.target(1100, 0, 24, 40)
    for level in range(3):
        lv.crate(1300, level * 40, 40, mass=30)
    lv.geometry(1500, 0, 1540, 160, 'concrete1')
    lv.target(1700, 0, 32, 48, health=200)
    lv.geometry(2000, 0, 2048, 260, 'concrete1')
    lv.target(2200, 0, 32, 64, health=300)
    # Beams under the ceiling for the grappling hook.
    for x0, y in ((0, 320), (560, 420), (1150, 360), (1700, 460), (2150, 380)):
        lv.geometry(x0, y, x0 + 200, y + 24, 'techpanel1')
    # A high target on a beam.
    lv.target(620, 444, 24, 40)
    # Past the last wall, the lift on to the stores.
    lv.exit(2330, 0, 'pickups', 'brindlequay/armoury')
    return lv


def pickups_walk():
    lv = Level('pickups')
    lv.shell(-640, 3200, 600)
    lv.spawn(-600, 8)
    x = -520
    for kind in ('health', 'quickhealth', 'megahealth', 'armour', 'quickarmour'):
        lv.pickup(kind, x)
        x += 64
    x += 64
    for w in WEAPONS:
        lv.pickup(w, x)
        lv.pickup(w + 'ammo', x + 30, 0, 20)
        x += 80
    x += 64
    # Sixteen bundles of 25: every upgrade threshold from 50 to 400.
    for i in range(16):
        lv.pickup('cashpickup', x + i * 40, 0, 16, attributes={'amount': '25'})
    x += 16 * 40 + 64
    for kind in ('quad', 'megaquad', 'invincibility', 'screenwiper'):
        lv.pickup(kind, x)
        x += 96
    # Something to spend the ammunition on.
    x += 64
    for i in range(4):
        lv.target(x + i * 80, health=80)
    for level in range(3):
        lv.crate(x + 400, level * 32, 32)
    # A raised walkway with a second health pack.
    lv.geometry(200, 160, 600, 184, 'techpanel1')
    lv.pickup('health', 380, 184)
    # The far end leads on to the control block.
    lv.exit(3130, 0, 'logic', 'brindlequay/stores')
    return lv


def main():
    root = os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..', 'maps')
    directory = sys.argv[1] if len(sys.argv) > 1 else root
    for lv in (weapons_range(), pickups_walk()):
        print(os.path.relpath(lv.write(directory)))


if __name__ == '__main__':
    main()
