"""Checks the generated media tree: completeness, formats the loaders take,
sane audio levels and reproducible output.

Run by CTest after the build has generated the tree into BQ_GAME_DIR;
without that variable the tree is generated into a scratch directory.
"""
import io
import os
import struct
import subprocess
import sys
import tempfile
import unittest
import wave
import xml.etree.ElementTree as ET

import numpy as np
from PIL import Image

SOURCE_DIR = os.environ.get('BQ_SOURCE_DIR',
                            os.path.abspath(os.path.join(os.path.dirname(__file__), '..', '..')))
TOOLS = os.path.join(SOURCE_DIR, 'tools', 'media')
GENERATE = os.path.join(TOOLS, 'generate.py')
sys.path.insert(0, TOOLS)

import manifest  # noqa: E402

# Paths the game's code opens by name. Kept apart from the manifest on
# purpose: dropping one of these from the manifest must fail here.
ENGINE_PATHS = """
data/images/debugsmiley.tga data/images/debugsmiley.png data/images/playerglow.png data/images/fallback.png
data/images/paused.png data/images/techbase.png data/images/concrete1.png data/images/defaultgame.png
data/images/checkers.png data/images/checkersred.png data/images/bossblock1.png data/images/bossblock2.png
data/images/bossblock3.png data/images/rocketstar.png data/images/grenade2.png data/images/grapplestar.png
data/images/gib.png data/images/cash.png data/images/chaingunenemy1.png data/images/plasmaenemy1.png
data/images/plasmaenemy2.png data/images/plasmaenemy3.png data/images/plasmaenemy4.png
data/images/rocketenemy1.png data/images/rocketenemy2.png data/images/shotgunenemy1.png
data/images/meleeenemy1.png data/images/sniperenemy1.png data/images/swarmer1.png data/images/swarmer2.png
data/images/swarmmember.png data/images/kamikazeenemy1.png data/images/spawnerenemy1.png
data/images/egglayerenemy1.png data/images/friendly.png data/images/engineerenemy.png
data/images/bacteria1.png data/images/bacteria2.png data/images/bacteria3.png data/images/bacteria4.png
data/images/egg1.png data/images/egg2.png data/images/eggcracked1.png data/images/eggcracked2.png
data/images/blockboss1.png data/images/blockboss2.png data/images/blockboss3.png data/images/destroyer1.png
data/images/electrotower1.png data/images/electrotowersighted1.png data/images/Turret.png
data/images/TurretSighted.png data/images/chaingun_view.png
data/images/iconbgleft.png data/images/iconbgcentre.png data/images/iconbgright.png
data/images/iconbgleft_glow.png data/images/iconbgcentre_glow.png data/images/iconbgright_glow.png
data/images/health.png data/images/armour.png data/images/swarmtimer.png data/images/quad.png
data/images/invincibility.png data/images/racetimer.png data/images/rocketlauncher.png
data/images/rocketlauncher_glow.png data/images/weaponselected.png data/images/weaponselected_glow.png
data/gui/bg.png data/gui/test.png data/gui/testover.png data/gui/testclicked.png data/gui/butclose.png
data/gui/butcloseover.png data/gui/butcloseclicked.png data/gui/butnext.png data/gui/butnextover.png
data/gui/butnextclicked.png data/gui/butprev.png data/gui/butprevover.png data/gui/butprevclicked.png
data/gui/grabber.png data/gui/hgrabber.png data/gui/mouse3.png data/gui/brindlequaylogo.png
data/gui/brindlequaylogo_glow.png
data/particles/defaultparticle.tga data/particles/brightpart.tga data/particles/beam.tga
data/particles/laserbeam.tga data/particles/cloud.png data/particles/magneticpulse.png
data/particles/lightning2.png data/particles/lightning3.png data/particles/plasma2.png
data/particles/plasma3.png data/particles/plasma4.png
data/sounds/sounds.xml data/sounds/events/On3.wav data/sounds/events/Off3.wav
data/sounds/gui/MouseTick.wav data/sounds/gui/MouseSquare.wav data/sounds/gui/SineHear.wav
data/sounds/gui/MenuSmoothClose.wav data/sounds/test/test.ogg
""".split()

WEAPON_ITEMS = ['grapple', 'pistol', 'plasmagun', 'shotgun', 'chaingun', 'grenadelauncher', 'rocketlauncher',
                'railgun', 'lightninggun', 'swarm']
LEVEL_TEXTURES = ['concrete1', 'concrete2', 'metal1', 'metal2', 'rock1', 'rock2', 'techpanel1', 'techpanel2',
                  'grate1', 'hazard1', 'planks1', 'quaystone1', 'water1', 'lava1', 'techbase', 'roofing1',
                  'serverrack1']
# Sizes that are not powers of two on purpose (the loader rescales them).
NPOT_ALLOWED = {'data/images/defaultgame.png': (320, 240)}

# Every other image is a sprite: drawn on a quad, it keeps a fully
# transparent edge, or the quad's square shows. The exceptions are listed
# here rather than marked in the manifest, so a new image is held to the
# sprite rule unless someone decides otherwise. Values name the edges
# (t, b, l, r) that must still be clear.
CLEAR_EDGES = dict(
    # Textures that tile, or fill a body, the screen or the sky.
    {'data/images/%s.png' % n: '' for n in LEVEL_TEXTURES + [
        'skystars', 'skyclouds', 'skynebula', 'skyhaze', 'checkers', 'checkersred', 'fallback', 'defaultgame',
        'bossblock1', 'bossblock2', 'bossblock3']},
    **{'data/gui/bg.png': ''},
    # Beams repeat along their length.
    **{'data/particles/%s' % n: 'lr' for n in (
        'beam.tga', 'laserbeam.tga', 'lightning1.png', 'lightning2.png', 'lightning3.png', 'plasma1.png',
        'plasma2.png', 'plasma3.png', 'plasma4.png', 'rail.png')},
    # HUD bar pieces join their neighbours edge to edge.
    **{'data/images/iconbg%s%s.png' % (part, glow): sides
       for part, sides in (('left', 'tbl'), ('centre', 'tb'), ('right', 'tbr')) for glow in ('', '_glow')})


def generate(out, *only):
    cmd = [sys.executable, GENERATE, '--out', out]
    for pattern in only:
        cmd += ['--only', pattern]
    subprocess.run(cmd, check=True, stdout=subprocess.DEVNULL)


_scratch = None


def game_dir():
    global _scratch
    env = os.environ.get('BQ_GAME_DIR')
    if env:
        return env
    if _scratch is None:
        _scratch = tempfile.TemporaryDirectory()
        generate(_scratch.name)
    return _scratch.name


def path(rel):
    return os.path.join(game_dir(), rel)


def is_pot(n):
    return n > 0 and n & (n - 1) == 0


def rgba(rel):
    return np.asarray(Image.open(path(rel)).convert('RGBA'), np.float64)


class CompletenessTest(unittest.TestCase):
    def test_every_manifest_file_exists_and_is_not_empty(self):
        missing = [p for p in manifest.all_paths() if not os.path.isfile(path(p)) or os.path.getsize(path(p)) == 0]
        self.assertEqual(missing, [])

    def test_every_path_the_game_opens_is_generated(self):
        listed = set(manifest.all_paths())
        self.assertEqual([p for p in ENGINE_PATHS if p not in listed], [])

    def test_each_weapon_has_icon_glow_and_view(self):
        listed = set(manifest.all_paths())
        for w in WEAPON_ITEMS:
            for suffix in ('.png', '_glow.png', '_view.png'):
                self.assertIn('data/images/' + w + suffix, listed)

    def test_manifest_paths_are_unique(self):
        paths = manifest.all_paths()
        self.assertEqual(len(paths), len(set(paths)))


class ImageFormatTest(unittest.TestCase):
    def test_images_are_8_bit_rgb_or_rgba_with_loadable_sizes(self):
        for e in manifest.IMAGES:
            with self.subTest(e['path']):
                img = Image.open(path(e['path']))
                self.assertIn(img.mode, ('RGB', 'RGBA'))
                w, h = img.size
                if e['path'] in NPOT_ALLOWED:
                    self.assertEqual((w, h), NPOT_ALLOWED[e['path']])
                else:
                    self.assertTrue(is_pot(w) and is_pot(h), (w, h))
                    self.assertLessEqual(max(w, h), 1024)

    def test_tga_headers_are_uncompressed_truecolour(self):
        for e in manifest.IMAGES:
            if not e['path'].endswith('.tga'):
                continue
            with self.subTest(e['path']):
                with open(path(e['path']), 'rb') as f:
                    head = f.read(18)
                id_len, cmap, kind = head[0], head[1], head[2]
                width, height, bpp = struct.unpack('<HHB', head[12:17])
                self.assertEqual((cmap, kind), (0, 2))
                self.assertIn(bpp, (24, 32))
                self.assertGreaterEqual(os.path.getsize(path(e['path'])), 18 + id_len + width * height * bpp // 8)

    def test_png_signature_and_depth(self):
        for e in manifest.IMAGES:
            if not e['path'].endswith('.png'):
                continue
            with self.subTest(e['path']):
                with open(path(e['path']), 'rb') as f:
                    head = f.read(33)
                self.assertEqual(head[:8], b'\x89PNG\r\n\x1a\n')
                bit_depth, colour_type = head[24], head[25]
                self.assertEqual(bit_depth, 8)
                self.assertIn(colour_type, (2, 6))


class ImageQualityTest(unittest.TestCase):
    @staticmethod
    def edge_rings(a, sides, depth):
        """The ring `depth` pixels in from each named edge."""
        rings = {'t': a[depth], 'b': a[-1 - depth], 'l': a[:, depth], 'r': a[:, -1 - depth]}
        return {side: rings[side] for side in sides}

    def test_sprites_keep_a_clear_margin(self):
        # The outermost pixel is fully transparent, and nothing opaque runs
        # into it from inside, which is what art cut off at the edge does.
        for e in manifest.IMAGES:
            sides = CLEAR_EDGES.get(e['path'], 'tblr')
            if not sides:
                continue
            with self.subTest(e['path']):
                with Image.open(path(e['path'])) as img:
                    self.assertEqual(img.mode, 'RGBA')
                a = rgba(e['path'])[..., 3]
                for side, ring in self.edge_rings(a, sides, 0).items():
                    self.assertEqual(ring.max(), 0, 'edge %s' % side)
                for side, ring in self.edge_rings(a, sides, 1).items():
                    self.assertLess(ring.max(), 240, 'art runs into edge %s' % side)
                self.assertGreater(a.max(), 64)

    def test_light_fades_out_before_the_edge(self):
        # Halos and particles are pure light: one cut off short of its fade
        # draws a faint square however clear the last pixel is.
        for e in manifest.IMAGES:
            p = e['path']
            if not (e['gen'] == 'glow' or p.startswith('data/particles/')) or CLEAR_EDGES.get(p) == 'lr':
                continue
            with self.subTest(p):
                a = rgba(p)[..., 3]
                for side, ring in self.edge_rings(a, 'tblr', 1).items():
                    self.assertLess(ring.max(), 26, 'edge %s' % side)

    def test_transparent_pixels_carry_their_neighbours_colour(self):
        # Linear filtering blends a transparent texel's colour into the edge;
        # black there would draw a dark fringe.
        for rel in ('data/images/debugsmiley.png', 'data/images/egg1.png', 'data/images/quad.png',
                    'data/particles/brightpart.tga', 'data/images/grenadelauncher_glow.png'):
            with self.subTest(rel):
                img = rgba(rel)
                a = img[..., 3]
                acc = np.zeros(a.shape + (3,))
                cnt = np.zeros(a.shape)
                for axis in (0, 1):
                    for step in (1, -1):
                        na = np.roll(a, step, axis)
                        nc = np.roll(img[..., :3], step, axis)
                        acc += nc * na[..., None]
                        cnt += na
                edge = (a == 0) & (cnt > 0)
                self.assertTrue(edge.any())
                expected = acc[edge] / cnt[edge][:, None]
                self.assertLess(np.abs(img[..., :3][edge] - expected).mean(), 24)

    def test_glow_variants_ring_and_light_their_image(self):
        # Drawn additively over the image, a glow twin both rings it and
        # brightens it clearly.
        for e in manifest.IMAGES:
            if e['gen'] != 'glow':
                continue
            with self.subTest(e['path']):
                source = rgba(e['args']['source'])[..., 3]
                base = source > 16
                glow = rgba(e['path'])
                halo = (glow[..., 3] > 16) & ~base
                self.assertEqual(glow.shape[:2], base.shape)
                self.assertGreater(halo.sum(), base.sum() * 0.15)
                lit = glow[..., 3] > 64
                self.assertGreater(glow[..., :3][lit].mean(), 150)
                self.assertGreater(glow[..., 3][source > 250].mean(), 128)

    def test_level_textures_tile_without_seams(self):
        for name in LEVEL_TEXTURES:
            with self.subTest(name):
                t = rgba('data/images/%s.png' % name)
                inner_x = np.abs(np.diff(t, axis=1)).mean()
                inner_y = np.abs(np.diff(t, axis=0)).mean()
                seam_x = np.abs(t[:, 0] - t[:, -1]).mean()
                seam_y = np.abs(t[0] - t[-1]).mean()
                self.assertLess(seam_x, inner_x * 2.5 + 1.0)
                self.assertLess(seam_y, inner_y * 2.5 + 1.0)

    def test_enemy_levels_look_different(self):
        for stem in ('chaingunenemy', 'plasmaenemy', 'rocketenemy'):
            with self.subTest(stem):
                a = rgba('data/images/%s1.png' % stem)
                b = rgba('data/images/%s2.png' % stem)
                self.assertGreater(np.abs(a - b).mean(), 0.5)


class CellTextureTest(unittest.TestCase):
    def test_cell_points_are_evenly_spread(self):
        # Rock and lava cells grow around these points; two clumped points
        # cut a sliver cell whose fan of shading repeats conspicuously once
        # the texture tiles.
        import imagelib
        for count in (22, 26, 40):
            with self.subTest(count=count):
                pts = imagelib.spaced_points(np.random.default_rng(count), 256, count)
                self.assertEqual(len(pts), count)
                d = np.abs(pts[:, None] - pts[None])
                d = np.minimum(d, 256 - d)
                dist = np.sqrt((d * d).sum(axis=-1)) + np.eye(count) * 1e9
                self.assertGreater(dist.min(), 0.5 * 256 / np.sqrt(count))


def read_wav(rel):
    with wave.open(path(rel), 'rb') as w:
        frames = w.readframes(w.getnframes())
        return w.getnchannels(), w.getsampwidth(), w.getframerate(), np.frombuffer(frames, '<i2')


def short_term_dbfs(x, rate):
    x = x.astype(np.float64) / 32768.0
    n = int(0.05 * rate)
    if len(x) <= n:
        return 20 * np.log10(np.sqrt(np.mean(x * x)) + 1e-12)
    c = np.cumsum(np.concatenate([[0.0], x * x]))
    return 20 * np.log10(np.sqrt(((c[n:] - c[:-n]) / n).max()) + 1e-12)


class SoundTest(unittest.TestCase):
    def wavs(self):
        return [s['path'] for s in manifest.SOUNDS if s['path'].endswith('.wav')]

    def test_wav_headers_are_mono_16_bit_pcm(self):
        for rel in self.wavs():
            with self.subTest(rel):
                with open(path(rel), 'rb') as f:
                    data = f.read()
                self.assertEqual(data[:4], b'RIFF')
                self.assertEqual(data[8:16], b'WAVEfmt ')
                self.assertEqual(struct.unpack('<I', data[4:8])[0], len(data) - 8)
                fmt_tag, = struct.unpack('<H', data[20:22])
                self.assertEqual(fmt_tag, 1)
                ch, width, rate, samples = read_wav(rel)
                self.assertEqual((ch, width, rate), (1, 2, 44100))
                self.assertGreater(len(samples), rate // 100)
                self.assertLess(len(samples), rate * 4)

    def test_no_sound_clips_and_loudness_is_even(self):
        levels = {}
        for rel in self.wavs():
            with self.subTest(rel):
                _, _, rate, x = read_wav(rel)
                self.assertLess(np.abs(x.astype(np.int32)).max(), 32000)
                levels[rel] = short_term_dbfs(x, rate)
                self.assertGreater(levels[rel], -26.0)
                self.assertLess(levels[rel], -8.0)
        weapons = [v for k, v in levels.items() if '/weapons/' in k or '/items/' in k]
        self.assertLess(max(weapons) - min(weapons), 9.0)

    def test_sound_starts_and_ends_quietly(self):
        for rel in self.wavs():
            with self.subTest(rel):
                if 'lightning' in rel or 'hum' in rel:
                    continue  # loops: the end runs on into the start
                _, _, _, x = read_wav(rel)
                self.assertLess(abs(int(x[0])), 400)
                self.assertLess(abs(int(x[-1])), 400)

    def test_test_sound_is_ogg_vorbis(self):
        with open(path('data/sounds/test/test.ogg'), 'rb') as f:
            data = f.read()
        self.assertEqual(data[:4], b'OggS')
        self.assertIn(b'vorbis', data[:128])

    def test_sound_definitions_bind_ids_0_to_42(self):
        root = ET.parse(path(manifest.SOUND_DEFS)).getroot()
        seen = {}
        for el in root:
            sid = int(el.get('id'))
            self.assertNotIn(sid, seen)
            seen[sid] = el
            self.assertTrue(os.path.isfile(path(el.get('path'))), el.get('path'))
            self.assertTrue(-1 <= int(el.get('channel')) <= 9)
            self.assertTrue(1 <= int(el.get('volume')) <= 100)
            self.assertIn(el.get('positional'), ('true', 'false'))
        self.assertEqual(sorted(seen), list(range(43)))


class DeterminismTest(unittest.TestCase):
    SUBSET = ['data/images/egg1.png', 'data/images/health*', 'data/images/lava1.png',
              'data/particles/brightpart.tga', 'data/sounds/weapons/explosion.wav', 'data/sounds/test/test.ogg',
              'data/sounds/sounds.xml']

    def test_same_seed_same_bytes(self):
        with tempfile.TemporaryDirectory() as a, tempfile.TemporaryDirectory() as b:
            generate(a, *self.SUBSET)
            generate(b, *self.SUBSET)
            count = 0
            for root, _, files in os.walk(a):
                for f in files:
                    rel = os.path.relpath(os.path.join(root, f), a)
                    with open(os.path.join(a, rel), 'rb') as fa, open(os.path.join(b, rel), 'rb') as fb:
                        first = fa.read()
                        self.assertEqual(first, fb.read(), rel)
                    # A subset comes out exactly as in the full build.
                    with open(path(rel), 'rb') as fg:
                        self.assertEqual(first, fg.read(), rel)
                    count += 1
            self.assertGreaterEqual(count, 8)


if __name__ == '__main__':
    unittest.main()
