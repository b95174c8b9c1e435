"""Every media file the game ships, with the generator that makes it.

Paths are relative to the game directory. Each image entry names a
generator function ("module.function") and its arguments; "glow" entries
derive an additive halo from an image listed before them. Sound entries
carry their sound id (None for sounds played by file name) and the
playback settings written into data/sounds/sounds.xml.
"""

SEED = 20261123

IMG = 'data/images/'
GUI = 'data/gui/'
PART = 'data/particles/'
SND = 'data/sounds/'

WEAPONS = ['grapple', 'pistol', 'plasmagun', 'shotgun', 'chaingun', 'grenadelauncher', 'rocketlauncher',
           'railgun', 'lightninggun', 'swarm', 'magneticgun']
AMMO = ['grappleammo', 'pistolammo', 'plasmagunammo', 'shotgunammo', 'chaingunammo', 'grenadelauncherammo',
        'rocketlauncherammo', 'railgunammo', 'lightninggunammo', 'swarmammo', 'magneticammo']

# Glow colours by family.
AMBER = 'ffb020'
HOSTILE = 'ff3a2a'
ALLY = '3cd8ff'


def _img(path, gen, **args):
    return {'path': path, 'gen': gen, 'args': args}


def _glow(path, source, colour, radius=2.0):
    return {'path': path, 'gen': 'glow', 'args': {'source': source, 'colour': colour, 'radius': radius}}


def _images():
    out = []
    add = out.append
    # The player (the main menu also bounces a PNG copy).
    add(_img(IMG + 'debugsmiley.tga', 'sprites.player'))
    add(_img(IMG + 'debugsmiley.png', 'sprites.player'))
    add(_img(IMG + 'playerglow.png', 'sprites.player_glow'))

    # Grunts by level. Levels past the ones the game names keep the
    # silhouette and add rank marks, so modders can use them too.
    names = {'chaingun': 'chaingunenemy', 'rocket': 'rocketenemy', 'shotgun': 'shotgunenemy',
             'melee': 'meleeenemy', 'sniper': 'sniperenemy', 'plasma': 'plasmaenemy'}
    for kind, stem in names.items():
        for level in range(1, 6):
            add(_img(IMG + '%s%d.png' % (stem, level), 'sprites.grunt', kind=kind, level=level))
    for level in (1, 2):
        add(_img(IMG + 'kamikazeenemy%d.png' % level, 'sprites.grunt', kind='kamikaze', level=level))
    add(_img(IMG + 'spawnerenemy1.png', 'sprites.spawner'))
    add(_img(IMG + 'egglayerenemy1.png', 'sprites.egglayer'))
    for level in (1, 2):
        add(_img(IMG + 'swarmer%d.png' % level, 'sprites.swarmer', level=level))
    for level in range(1, 5):
        add(_img(IMG + 'bacteria%d.png' % level, 'sprites.bacteria', level=level))
    for level in (1, 2):
        add(_img(IMG + 'egg%d.png' % level, 'sprites.egg', level=level))
        add(_img(IMG + 'eggcracked%d.png' % level, 'sprites.egg', level=level, cracked=True))
    add(_img(IMG + 'engineerenemy.png', 'sprites.engineer'))
    add(_img(IMG + 'friendly.png', 'sprites.friendly'))
    add(_img(IMG + 'swarmmember.png', 'sprites.swarm_member'))
    add(_img(IMG + 'Turret.png', 'sprites.turret'))
    add(_img(IMG + 'TurretSighted.png', 'sprites.turret', sighted=True))
    add(_img(IMG + 'electrotower1.png', 'sprites.electrotower'))
    add(_img(IMG + 'electrotowersighted1.png', 'sprites.electrotower', sighted=True))
    add(_img(IMG + 'harddrive.png', 'sprites.harddrive'))
    add(_img(IMG + 'cpu.png', 'sprites.harddrive', cpu=True))
    add(_img(IMG + 'searchlight.png', 'sprites.searchlight'))
    add(_img(IMG + 'ballofdeath.png', 'sprites.ball_of_death'))
    add(_img(IMG + 'proxygrenade.png', 'sprites.proxy_grenade'))
    # Bosses.
    for state in range(3):
        add(_img(IMG + 'blockboss%d.png' % (state + 1), 'sprites.block_boss', state=state))
        add(_img(IMG + 'bossblock%d.png' % (state + 1), 'textures.boss_block', kind=state))
    add(_img(IMG + 'destroyer1.png', 'sprites.destroyer'))

    # Projectiles, gibs, cash.
    add(_img(IMG + 'rocketstar.png', 'sprites.rocket_star'))
    add(_img(IMG + 'grenade2.png', 'sprites.grenade'))
    add(_img(IMG + 'grapplestar.png', 'sprites.grapple_star'))
    add(_img(IMG + 'gib.png', 'sprites.gib'))
    add(_img(IMG + 'cash.png', 'sprites.cash'))

    # Weapons: HUD icon, its glow, and the view drawn in the world.
    for w in WEAPONS:
        add(_img(IMG + w + '.png', 'icons.weapon_icon', name=w))
        add(_glow(IMG + w + '_glow.png', IMG + w + '.png', AMBER, 1.6))
        add(_img(IMG + w + '_view.png', 'icons.weapon_view', name=w))
    for a in AMMO:
        add(_img(IMG + a + '.png', 'icons.ammo_box', item=a))

    # Pickups and HUD icons; pickup bodies use the image named after their type.
    for kind in ('health', 'armour', 'swarmtimer', 'quad', 'invincibility', 'racetimer'):
        add(_img(IMG + kind + '.png', 'icons.item_icon', kind=kind, size=64))
        add(_glow(IMG + kind + '_glow.png', IMG + kind + '.png', AMBER, 3.0))
    for kind in ('quickhealth', 'megahealth', 'quickarmour', 'megaquad', 'screenwiper'):
        add(_img(IMG + kind + '.png', 'icons.item_icon', kind=kind, size=64))
    add(_img(IMG + 'iconbgleft.png', 'icons.bar_piece', part='left', w=16, h=64))
    add(_img(IMG + 'iconbgcentre.png', 'icons.bar_piece', part='centre', w=128, h=64))
    add(_img(IMG + 'iconbgright.png', 'icons.bar_piece', part='right', w=16, h=64))
    add(_img(IMG + 'iconbgleft_glow.png', 'icons.bar_piece', part='left', w=16, h=64, glow=True))
    add(_img(IMG + 'iconbgcentre_glow.png', 'icons.bar_piece', part='centre', w=128, h=64, glow=True))
    add(_img(IMG + 'iconbgright_glow.png', 'icons.bar_piece', part='right', w=16, h=64, glow=True))
    add(_img(IMG + 'weaponselected.png', 'icons.weapon_selected'))
    add(_glow(IMG + 'weaponselected_glow.png', IMG + 'weaponselected.png', AMBER, 2.0))

    # Screens and fixed images.
    add(_img(IMG + 'fallback.png', 'textures.fallback'))
    add(_img(IMG + 'paused.png', 'textures.paused'))
    add(_img(IMG + 'techbase.png', 'textures.techbase'))
    add(_img(IMG + 'concrete1.png', 'textures.concrete', variant=1))
    add(_img(IMG + 'defaultgame.png', 'textures.default_game'))
    add(_img(IMG + 'checkers.png', 'textures.checkers'))
    add(_img(IMG + 'checkersred.png', 'textures.checkers', red=True))

    # Level textures: seamless, power-of-two.
    add(_img(IMG + 'concrete2.png', 'textures.concrete', variant=2))
    add(_img(IMG + 'metal1.png', 'textures.metal', variant=1))
    add(_img(IMG + 'metal2.png', 'textures.metal', variant=2))
    add(_img(IMG + 'rock1.png', 'textures.rock', variant=1))
    add(_img(IMG + 'rock2.png', 'textures.rock', variant=2))
    add(_img(IMG + 'techpanel1.png', 'textures.techpanel', variant=1))
    add(_img(IMG + 'techpanel2.png', 'textures.techpanel', variant=2))
    add(_img(IMG + 'grate1.png', 'textures.grate'))
    add(_img(IMG + 'hazard1.png', 'textures.hazard'))
    add(_img(IMG + 'planks1.png', 'textures.planks'))
    add(_img(IMG + 'quaystone1.png', 'textures.quaystone'))
    add(_img(IMG + 'roofing1.png', 'textures.roofing'))
    add(_img(IMG + 'serverrack1.png', 'textures.serverrack'))
    add(_img(IMG + 'water1.png', 'textures.water'))
    add(_img(IMG + 'lava1.png', 'textures.lava'))
    # Sky layers.
    add(_img(IMG + 'skystars.png', 'textures.sky', kind='stars'))
    add(_img(IMG + 'skyclouds.png', 'textures.sky', kind='clouds'))
    add(_img(IMG + 'skynebula.png', 'textures.sky', kind='nebula'))
    add(_img(IMG + 'skyhaze.png', 'textures.sky', kind='haze'))

    # GUI.
    add(_img(GUI + 'bg.png', 'gui.panel_bg'))
    for state, suffix in (('normal', ''), ('over', 'over'), ('clicked', 'clicked')):
        add(_img(GUI + 'test%s.png' % suffix, 'gui.test_button', state=state))
        for glyph in ('close', 'next', 'prev'):
            add(_img(GUI + 'but%s%s.png' % (glyph, suffix), 'gui.round_button', glyph_kind=glyph, state=state))
    add(_img(GUI + 'grabber.png', 'gui.grabber'))
    add(_img(GUI + 'hgrabber.png', 'gui.grabber', horizontal=True))
    add(_img(GUI + 'mouse3.png', 'gui.cursor'))
    add(_img(GUI + 'brindlequaylogo.png', 'textures.logo'))
    add(_img(GUI + 'brindlequaylogo_glow.png', 'textures.logo', glow=True))

    # Particles and beams.
    add(_img(PART + 'defaultparticle.tga', 'particles.soft_dot'))
    add(_img(PART + 'brightpart.tga', 'particles.bright_part'))
    add(_img(PART + 'beam.tga', 'particles.beam'))
    add(_img(PART + 'laserbeam.tga', 'particles.laser_beam'))
    add(_img(PART + 'tracer.tga', 'particles.tracer'))
    add(_img(PART + 'spark.tga', 'particles.spark'))
    add(_img(PART + 'cloud.png', 'particles.cloud'))
    add(_img(PART + 'magneticpulse.png', 'particles.magnetic_pulse'))
    for v in (1, 2, 3):
        add(_img(PART + 'lightning%d.png' % v, 'particles.lightning', variant=v))
    for v in (1, 2, 3, 4):
        add(_img(PART + 'plasma%d.png' % v, 'particles.plasma', variant=v))
    add(_img(PART + 'rail.png', 'particles.rail'))
    add(_img(PART + 'smoke.png', 'particles.smoke'))
    add(_img(PART + 'fire.png', 'particles.fire'))
    add(_img(PART + 'flare.png', 'particles.flare'))
    add(_img(PART + 'shockwave.png', 'particles.shockwave'))
    add(_img(PART + 'blood.png', 'particles.blood'))
    add(_img(PART + 'bubble.png', 'particles.bubble'))
    add(_img(PART + 'dust.png', 'particles.dust'))
    add(_img(PART + 'star.png', 'particles.star'))
    add(_img(PART + 'debris.png', 'particles.debris'))
    return out


def _snd(sid, path, recipe, channel=-1, volume=100, positional=True, loudness=-14.0, **args):
    return {'id': sid, 'path': SND + path, 'recipe': recipe, 'channel': channel, 'volume': volume,
            'positional': positional, 'loudness': loudness, 'args': args}


# Mixing channels 0 to 9 are reserved for sounds that name one: 1 weapon
# handling, 2 enemy weapons (chosen by the code), 3 pickups, 4 cash,
# 5 power-ups and upgrades. Everything else takes the first free channel.
SOUNDS = [
    _snd(0, 'weapons/explosion.wav', 'explosion', volume=100, loudness=-11),
    _snd(1, 'weapons/rocket.wav', 'rocket_launch', volume=90),
    _snd(2, 'weapons/grenade.wav', 'grenade_launch', volume=85),
    _snd(3, 'weapons/grapplefire.wav', 'grapple_fire', volume=70),
    _snd(4, 'weapons/railgun.wav', 'railgun', volume=95),
    _snd(5, 'weapons/pistol.wav', 'pistol', volume=80),
    _snd(6, 'world/dooropen.wav', 'door', volume=70, opening=True),
    _snd(7, 'world/doorclose.wav', 'door', volume=70, opening=False),
    _snd(8, 'weapons/chaingun.wav', 'chaingun', volume=70),
    _snd(9, 'weapons/switch.wav', 'weapon_switch', channel=1, volume=80, positional=False, loudness=-16),
    _snd(10, 'weapons/noammo.wav', 'empty_click', channel=1, volume=80, positional=False, loudness=-16),
    _snd(11, 'world/splash.wav', 'splash', volume=80),
    _snd(12, 'world/bounce1.wav', 'bounce', volume=60, pitch=420),
    _snd(13, 'world/bounce2.wav', 'bounce', volume=60, pitch=520),
    _snd(14, 'items/ammo.wav', 'ammo_pickup', channel=3, positional=False),
    _snd(15, 'items/respawn.wav', 'respawn', volume=70),
    _snd(16, 'items/armour.wav', 'armour_pickup', channel=3, positional=False),
    _snd(17, 'items/weapon.wav', 'weapon_pickup', channel=3, positional=False),
    _snd(18, 'items/health.wav', 'health_pickup', channel=3, positional=False),
    _snd(19, 'world/teleport.wav', 'teleport', volume=85),
    _snd(20, 'weapons/grappleattach.wav', 'grapple_attach', volume=70),
    _snd(21, 'weapons/shotgun.wav', 'shotgun', volume=90, loudness=-12),
    _snd(22, 'weapons/lightning.wav', 'lightning_loop', volume=75, loudness=-16),
    _snd(23, 'weapons/plasma.wav', 'plasma', volume=65),
    _snd(24, 'items/cash.wav', 'cash', channel=4, positional=False, loudness=-16),
    _snd(25, 'items/powerup.wav', 'powerup', channel=5, positional=False),
    _snd(26, 'items/quadfire.wav', 'quad_fire', volume=80),
    _snd(27, 'items/quadexpire.wav', 'quad_expire', channel=5, positional=False),
    _snd(28, 'world/jumppad.wav', 'jump_pad', volume=80),
    _snd(29, 'items/megahealth.wav', 'megahealth', channel=3, positional=False),
    _snd(30, 'items/upgrade.wav', 'upgrade', channel=5, positional=False),
    _snd(31, 'enemies/alert.wav', 'alert', volume=75, loudness=-16),
    _snd(32, 'world/hum.wav', 'hum_loop', volume=50, loudness=-18),
    _snd(33, 'world/switch.wav', 'switch', volume=85),
    _snd(34, 'weapons/plasmapistol.wav', 'plasma_pistol', volume=70),
    _snd(35, 'weapons/plasmahit.wav', 'plasma_hit', volume=70),
    _snd(36, 'weapons/melee.wav', 'melee', volume=80),
    _snd(37, 'world/zap.wav', 'zap', volume=90),
    _snd(38, 'world/gridon.wav', 'grid_on', volume=70),
    _snd(39, 'world/gridoff.wav', 'grid_off', volume=70),
    _snd(40, 'enemies/eggcrack.wav', 'egg_crack', volume=85),
    _snd(41, 'enemies/hatch.wav', 'hatch', volume=85),
    _snd(42, 'enemies/repair.wav', 'repair', volume=70, loudness=-16),
    # Played by file name.
    _snd(None, 'events/On3.wav', 'pause_off', positional=False, loudness=-16),
    _snd(None, 'events/Off3.wav', 'pause_on', positional=False, loudness=-16),
    _snd(None, 'gui/MouseTick.wav', 'mouse_tick', positional=False, loudness=-20),
    _snd(None, 'gui/MouseSquare.wav', 'mouse_square', positional=False, loudness=-20),
    _snd(None, 'gui/SineHear.wav', 'sine_hear', positional=False, loudness=-17),
    _snd(None, 'gui/MenuSmoothClose.wav', 'menu_close', positional=False, loudness=-17),
    _snd(None, 'test/test.ogg', 'test_jingle', positional=False, loudness=-15),
]

IMAGES = _images()
SOUND_DEFS = 'data/sounds/sounds.xml'


def all_paths():
    return [e['path'] for e in IMAGES] + [s['path'] for s in SOUNDS] + [SOUND_DEFS]
