"""Building blocks for levels that are places: ground with depth, walls that
reach a ceiling, rooms, stairs, held ledges, lamps, message zones and
checkpoints, textured by material. Sizes come from the game itself:

  PLAYER       the player's body is a 16 x 16 square (Game.cpp, makeRectangle)
  JUMP         a standing jump lifts it about 40 units (0.3 s of jump force
               against gravity -80: gamevars.xml, GameplayInput.h), and the
               controls test holds it to a 32-unit ledge
  HOOK_REACH   the hook flies at 300 units/s for at most 3 s
               (GrappleProjectile.cpp); HOOK_GAP is what we ask of a player
               in one swing, well inside both reach and view

Messages may name the player's keys with "$bind:+attack" (one word) or
"$bind{savegame quicksave}"; the game fills in the bound key.

  from places import Place
  lv = Place('quay', 'haze')
  lv.ground(-200, 3000, 0)
  ...
  lv.write(directory)
"""
from xml.sax.saxutils import escape

from ranges import Level
from enemies import enemy, grunt

PLAYER = 16
JUMP = 40
LEDGE = 32          # highest step a player is asked to jump on to
STEP = 16           # one stair step
GAP = 64            # widest gap asked of a running jump
CORRIDOR = 2 * PLAYER
HOOK_REACH = 900
HOOK_GAP = 320
FLOOR_DEPTH = 480   # deep enough that no sky shows under the ground

# One palette per area: the material of each kind of surface.
MATERIALS = {
    'quay': {'ground': 'rock1', 'top': 'concrete1', 'wall': 'quaystone1', 'ceiling': 'concrete2',
             'beam': 'metal1', 'deck': 'planks1', 'back': 'quaystone1', 'trim': 'hazard1'},
    'armoury': {'ground': 'rock2', 'top': 'metal2', 'wall': 'metal1', 'ceiling': 'metal1',
                'beam': 'techpanel1', 'deck': 'metal2', 'back': 'techpanel2', 'trim': 'hazard1'},
    'stores': {'ground': 'rock2', 'top': 'concrete1', 'wall': 'quaystone1', 'ceiling': 'concrete1',
               'beam': 'metal1', 'deck': 'grate1', 'back': 'metal1', 'trim': 'hazard1'},
    'roofs': {'ground': 'concrete2', 'top': 'roofing1', 'wall': 'concrete1', 'ceiling': 'metal1',
              'beam': 'metal1', 'deck': 'grate1', 'back': 'concrete2', 'trim': 'hazard1'},
    'servers': {'ground': 'rock2', 'top': 'metal2', 'wall': 'serverrack1', 'ceiling': 'metal1',
                'beam': 'metal2', 'deck': 'grate1', 'back': 'techpanel2', 'trim': 'hazard1'},
    'lair': {'ground': 'rock1', 'top': 'rock2', 'wall': 'metal1', 'ceiling': 'rock1',
             'beam': 'metal2', 'deck': 'metal2', 'back': 'rock2', 'trim': 'hazard1'},
}

BACKDROP = '150,150,160,255'   # darker than the walls, so the room reads as behind


class Place(Level):
    def __init__(self, name, area):
        super().__init__(name)
        self.mat = MATERIALS[area]
        self.backdrops = []

    def body(self, kind, x0, y0, x1, y1, texture='', targets='', attributes=None, **kw):
        """As Level.body, with targets and with texts made safe for XML."""
        if attributes:
            attributes = {k: escape(v, {'"': '&quot;'}) for k, v in attributes.items()}
        super().body(kind, x0, y0, x1, y1, texture, attributes=attributes, **kw)
        if targets:
            self.parts[-1] = self.parts[-1].replace('targets=""', 'targets="%s"' % targets, 1)

    def door(self, idname, x0, y0, x1, y1, lift=None, speed=64, timeopen=0):
        """A sliding door that opens upwards by lift (its height by default) and stays open."""
        self.body('door', x0, y0, x1, y1, 'data/images/techpanel2.png', entity=True, tile=False,
                  idname=idname, attributes={'openoffset': '0,%d' % (lift or (y1 - y0)), 'speed': str(speed),
                                             'timeopen': str(timeopen)})

    def switch(self, x, y, targets):
        self.body('switch', x, y, x + 16, y + 24, 'data/images/techpanel1.png', solid=False, entity=True,
                  tile=False, targets=targets,
                  attributes={'untriggeredimage': 'data/images/techpanel1.png',
                              'triggeredimage': 'data/images/hazard1.png', 'triggeronce': 'true',
                              'glow': 'true'})

    def material(self, kind):
        return self.mat.get(kind, kind)

    # Geometry -------------------------------------------------------------

    def block(self, x0, y0, x1, y1, kind='wall', colour='255,255,255,255'):
        self.body('default', x0, y0, x1, y1, 'data/images/%s.png' % self.material(kind), colour=colour)

    def ground(self, x0, x1, top, depth=FLOOR_DEPTH, surface=True):
        """Solid ground from top down to the level floor, with a paved skin."""
        if surface:
            self.block(x0, top - depth, x1, top - 16, 'ground')
            self.block(x0, top - 16, x1, top, 'top')
        else:
            self.block(x0, top - depth, x1, top, 'ground')

    def wall(self, x, y0, y1, thickness=32, kind='wall'):
        self.block(x, y0, x + thickness, y1, kind)

    def ceiling(self, x0, x1, y, thickness=64):
        self.block(x0, y, x1, y + thickness, 'ceiling')

    def room(self, x0, x1, floor, height, doors=(0, 0), thickness=32):
        """Ground, ceiling and side walls; each side (west, east) keeps a
        doorway of the given height above the floor (0: closed, None: no wall)."""
        self.ground(x0 - thickness, x1 + thickness, floor)
        self.ceiling(x0 - thickness, x1 + thickness, floor + height)
        for door, x in zip(doors, (x0 - thickness, x1)):
            if door is not None:
                self.wall(x, floor + door, floor + height, thickness)
        self.backdrop(x0, floor, x1, floor + height)

    def bookends(self, west, east, bottom=-FLOOR_DEPTH, top=640, width=384):
        """Solid rock past both ends, so the view never shows past the level."""
        self.block(west - width, bottom, west, top, 'ground')
        self.block(east, bottom, east + width, top, 'ground')

    def backdrop(self, x0, y0, x1, y1, kind='back'):
        """An unlit wall behind the play plane: indoors shows no sky."""
        self.backdrops.append((x0, y0, x1, y1, kind))

    def stairs(self, x, floor, steps, direction=1, rise=STEP, run=32, kind='top'):
        """Steps up from floor starting at x, going right (1) or left (-1); returns the top."""
        far = x + direction * steps * run
        for i in range(steps):
            near = x + direction * i * run
            a, b = sorted((near, far))
            self.block(a, floor + i * rise, b, floor + (i + 1) * rise, kind)
        return floor + steps * rise

    def ledge(self, x0, x1, y, thickness=16, kind='deck', hang=None):
        """A platform; with hang (a y above it), chains to what holds it."""
        self.block(x0, y - thickness, x1, y, kind)
        if hang is not None:
            for x in (x0 + 8, x1 - 12):
                self.detail(x, y, x + 4, hang, 'metal1')

    def beam(self, x0, x1, y, thickness=16):
        """A steel beam to hook on to."""
        self.block(x0, y, x1, y + thickness, 'beam')

    def practice_target(self, x, y=56, health=60):
        """A shooting target on a wall bracket, high enough to walk under."""
        self.block(x - 8, y - 8, x + 32, y, 'beam')
        self.target(x, y, 24, 40, health)

    def crate(self, x, y, size=32, mass=20):
        self.body('default', x, y, x + size, y + size, 'data/images/planks1.png', mass=mass)

    def water(self, x0, x1, bottom, top, rim=0):
        """A pool from bottom to top in a basin whose edge is at rim."""
        # The basin wall behind, up to the edge, so no sky shows through or over the water.
        self.backdrop(x0, bottom, x1, max(top, rim), 'ground')
        self.body('water', x0, bottom, x1, top, 'data/images/water1.png', solid=False, entity=True,
                  outlined=False, colour='120,170,220,150')

    def hazard_strip(self, x0, x1, y, height=8):
        self.block(x0, y, x1, y + height, 'trim')

    # Dressing --------------------------------------------------------------

    def detail(self, x0, y0, x1, y1, texture, colour='255,255,255,255', glow=False):
        self.body('detail', x0, y0, x1, y1, 'data/images/%s.png' % texture, solid=False, colour=colour,
                  outlined=False, attributes={'glow': 'true'} if glow else None)

    def lamp(self, x, y, width=64):
        """A glowing strip, under a ceiling or over a door."""
        self.body('detail', x, y, x + width, y + 6, 'data/images/hazard1.png', solid=False, tile=False,
                  outlined=False, colour='255,230,170,255', attributes={'glow': 'true'})

    def sound(self, x, y, sample, volume=50):
        """A looping sound heard within about 500 units."""
        self.body('soundbody', x, y, x + 8, y + 8, solid=False, entity=True, visible=False, outlined=False,
                  attributes={'sound': 'data/sounds/%s' % sample, 'volume': str(volume), 'loops': '-1'})

    def effect(self, x, y, system):
        """A particle effect that runs from the start (steam, sparks, bubbles)."""
        self.body('particlesystembody', x, y, x + 8, y + 8, solid=False, entity=True, visible=False,
                  outlined=False, attributes={'systemid': system, 'on': 'true'})

    def sign(self, x, y, text, size=12):
        self.body('textbody', x, y, x + 8 * len(text), y + 20, solid=False, entity=True, outlined=False,
                  attributes={'text': text, 'font': 'vera', 'size': str(size), 'shadow': 'true'})

    def sky(self, skies, initial, music=None):
        """The level's skies and, when given, its music track (data/music/<music>.ogg)."""
        attributes = {'skies': skies, 'initialsky': initial}
        if music:
            attributes['music'] = music
        self.body('skyinfo', 0, -40, 8, -32, solid=False, entity=True, visible=False, outlined=False,
                  attributes=attributes)

    # Logic ----------------------------------------------------------------

    def message(self, x, floor, text, width=48, height=64, idname=None):
        """A zone that shows text once when the player walks into it."""
        self.body('messagebody', x, floor, x + width, floor + height, solid=False, entity=True,
                  visible=False, outlined=False, idname=idname,
                  attributes={'message': text, 'triggeronce': 'true'})

    def checkpoint(self, x, floor):
        """A glowing post; touching it saves the run."""
        self.body('checkpoint', x, floor, x + 12, floor + 48, 'data/images/techpanel2.png', solid=False,
                  entity=True, outlined=False, tile=False, colour='150,255,170,255',
                  attributes={'triggeronce': 'true', 'glow': 'true'})

    def grunt(self, kind, x, floor, level=1, attributes=None):
        grunt(self, kind, x, floor + 16, level, attributes)

    def enemy(self, kind, x, y, level=1, image=None, size=28, attributes=None, mass=100):
        enemy(self, kind, x, y, level, image, size, attributes, mass=mass)

    def turret(self, x, floor):
        enemy(self, 'turret', x, floor + 16, image='Turret', size=32, mass=0)

    def weapon(self, kind, x, floor, ammo=25):
        self.pickup(kind, x, floor, attributes={'ammo': str(ammo)})

    def cash(self, x, floor, amount=10):
        self.pickup('cashpickup', x, floor, 16, attributes={'amount': str(amount)})

    # Industrial pieces ------------------------------------------------------

    def hidden(self, kind, x, y, idname=None, targets='', attributes=None, size=8):
        """An invisible logic body (spawner, wave controller, messenger, group)."""
        self.body(kind, x, y, x + size, y + size, solid=False, entity=True, visible=False, outlined=False,
                  idname=idname, targets=targets, attributes=attributes)

    def zone(self, kind, x0, y0, x1, y1, idname=None, targets='', attributes=None):
        """An invisible touch zone (trigger, sky change, battery slot without a plate)."""
        self.body(kind, x0, y0, x1, y1, solid=False, entity=True, visible=False, outlined=False,
                  idname=idname, targets=targets, attributes=attributes)

    def lava(self, x0, x1, bottom, top, rim=0):
        """Molten metal in a basin: it burns, and it is shallow enough to climb out of."""
        self.backdrop(x0, bottom, x1, max(top, rim), 'ground')
        self.body('lava', x0, bottom, x1, top, 'data/images/lava1.png', solid=False, entity=True,
                  outlined=False, colour='255,200,160,255', attributes={'glow': 'true'})

    def platform(self, idname, x0, y0, x1, y1, offset, speed=64, timeopen=1500, plate=True):
        """A moving deck (a door that travels by offset and comes back); with
        plate, stepping on it at home sets it going."""
        self.body('door', x0, y0, x1, y1, 'data/images/%s.png' % self.material('deck'), entity=True,
                  idname=idname, attributes={'openoffset': '%d,%d' % offset, 'speed': str(speed),
                                             'timeopen': str(timeopen)})
        if plate:
            self.zone('trigger', x0 + 4, y1, x1 - 4, y1 + 20, targets=idname)

    def alphadoor(self, idname, x0, y0, x1, y1, timeopen=0, triggeronce=True, texture='hazard1'):
        """A shutter that vanishes when triggered."""
        self.body('alphadoor', x0, y0, x1, y1, 'data/images/%s.png' % texture, entity=True, idname=idname,
                  attributes={'timeopen': str(timeopen), 'triggeronce': 'true' if triggeronce else 'false'})

    def barrel(self, x, floor):
        self.body('explodingbarrel', x, floor, x + 20, floor + 28, 'data/images/hazard1.png', entity=True,
                  mass=40, tile=False)

    def battery(self, x, floor, idname=None):
        self.body('battery', x, floor, x + 24, floor + 24, 'data/images/techpanel1.png', entity=True, mass=20,
                  tile=False, idname=idname, attributes={'glow': 'true'})

    def batteryslot(self, x0, x1, floor, targets):
        """A cradle on the floor: a battery pushed into it fires the targets.
        Its marks are flat, so nothing stops a battery sliding in."""
        self.detail(x0, floor, x1, floor + 3, 'hazard1', glow=True)
        self.body('batteryslot', x0, floor, x1, floor + 24, 'data/images/grate1.png', solid=False, entity=True,
                  outlined=False, targets=targets, attributes={'triggeronce': 'true', 'glow': 'true'})

    def attractor(self, x, y, force, radius, idname=None):
        self.hidden('attractor', x, y, idname, attributes={'force': str(force), 'radius': str(radius)})

    def painbody(self, x0, y0, x1, y1, pain=10, on=True, idname=None, reverttimer=0):
        self.body('painbody', x0, y0, x1, y1, 'data/images/hazard1.png', solid=False, entity=True,
                  outlined=False, idname=idname,
                  attributes={'on': 'true' if on else 'false', 'pain': str(pain),
                              'reverttimer': str(reverttimer), 'glow': 'true'})

    def jumppad(self, x, floor, speed, width=32):
        self.body('jumppad', x, floor, x + width, floor + 8, 'data/images/grate1.png', solid=False, entity=True,
                  outlined=False, attributes={'speed': '%d,%d' % speed})

    def grid(self, x0, y0, x1, y1, pain=15, timeon=1600, timeoff=1400, on=True, idname=None):
        """An electric grid: on and off on its timers, visible while on."""
        self.body('electrogrid', x0, y0, x1, y1, 'data/images/grate1.png', solid=False, entity=True,
                  outlined=False, idname=idname,
                  attributes={'on': 'true' if on else 'false', 'pain': str(pain), 'timeon': str(timeon),
                              'timeoff': str(timeoff), 'glow': 'true'})

    def go_to(self, x, y, target, spawn='start'):
        """The way out straight into the next level, with no cut scene between."""
        self.body('levelchange', x, y, x + 32, y + 48, 'data/images/techpanel2.png', solid=False, entity=True,
                  colour='241,241,241,255', tile=False, idname='exit',
                  attributes={'leveltarget': target, 'targetspawn': spawn, 'glow': 'true'})

    def write(self, directory):
        # Backdrops first, so everything in the play plane draws over them.
        front = self.parts
        self.parts = []
        for x0, y0, x1, y1, kind in self.backdrops:
            self.body('detail', x0, y0, x1, y1, 'data/images/%s.png' % self.material(kind), solid=False,
                      outlined=False, colour=BACKDROP)
        self.parts += front
        try:
            return super().write(directory)
        finally:
            self.parts = front
