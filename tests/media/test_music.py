"""Checks the music: every track the levels and menus name is rendered,
lasts as long as its song, loops without a seam and stays small; the note
file reader reports its errors by line.

Run by CTest after the build has rendered the tracks into BQ_GAME_DIR;
without that variable they are rendered into a scratch directory.
"""
import os
import subprocess
import sys
import tempfile
import unittest
import wave

import numpy as np

SOURCE_DIR = os.environ.get('BQ_SOURCE_DIR',
                            os.path.abspath(os.path.join(os.path.dirname(__file__), '..', '..')))
TOOL = os.path.join(SOURCE_DIR, 'tools', 'music')
sys.path.insert(0, TOOL)

import music  # noqa: E402

# The names levels, menus and cut scenes ask for.
TRACKS = ('menu', 'cutscene', 'quay', 'foundry', 'servers', 'boss')

_scratch = None


def game_dir():
    global _scratch
    env = os.environ.get('BQ_GAME_DIR')
    if env:
        return env
    if _scratch is None:
        _scratch = tempfile.TemporaryDirectory()
        subprocess.run([sys.executable, os.path.join(TOOL, 'music.py'), '--out', _scratch.name], check=True,
                       stdout=subprocess.DEVNULL)
    return _scratch.name


def decode(path):
    with tempfile.TemporaryDirectory() as tmp:
        out = os.path.join(tmp, 'x.wav')
        subprocess.run(['oggdec', '-Q', '-o', out, path], check=True)
        with wave.open(out) as w:
            rate = w.getframerate()
            x = np.frombuffer(w.readframes(w.getnframes()), '<i2').astype(float) / 32768.0
            return x.reshape(-1, w.getnchannels()).mean(axis=1), rate


def song_seconds(name):
    with open(os.path.join(TOOL, 'tracks', name + '.txt'), encoding='utf-8') as f:
        track = music.parse(f.read())
    _, steps = music.events(track)
    return steps * 60.0 / track['tempo'] * 4.0 / track['steps']


class TrackFilesTest(unittest.TestCase):
    def test_each_track_is_rendered_long_enough_loops_and_stays_small(self):
        for name in TRACKS:
            with self.subTest(track=name):
                path = os.path.join(game_dir(), 'data', 'music', name + '.ogg')
                self.assertTrue(os.path.exists(path), path)
                self.assertLess(os.path.getsize(path), 400 * 1024)
                x, rate = decode(path)
                seconds = len(x) / rate
                self.assertGreaterEqual(seconds, 45.0)
                self.assertLessEqual(seconds, 90.0)
                self.assertAlmostEqual(seconds, song_seconds(name), delta=0.05)
                # Played round, the last sample runs into the first like
                # any other pair: no click, no fade to silence at either end.
                steps = np.abs(np.diff(x))
                self.assertLessEqual(abs(x[-1] - x[0]), np.percentile(steps, 99.9) + 1e-3)
                edge = rate // 2
                level = np.sqrt(np.mean(x ** 2))
                for part in (x[:edge], x[-edge:]):
                    self.assertGreater(np.sqrt(np.mean(part ** 2)), level * 0.2)


class SynthesiserTest(unittest.TestCase):
    def test_a_note_held_over_the_end_comes_round_to_the_start(self):
        track = music.parse('tempo 120\nsteps 4\necho 0.5 0.4\n'
                            'instrument pad wave=saw attack=0.01 release=0.5 gain=0.5 echo=0.5\n'
                            'pattern p\n  pad . . . . | . . . c4\nend\nsong p\n')
        x = music.render(track, 1)
        self.assertAlmostEqual(len(x) / music.RATE, 4.0, delta=0.001)
        first_step = x[:music.RATE // 2]
        quiet = x[music.RATE:music.RATE * 3 // 2]
        self.assertGreater(np.sqrt(np.mean(first_step ** 2)), 0.01)
        self.assertGreater(np.sqrt(np.mean(first_step ** 2)), 10 * np.sqrt(np.mean(quiet ** 2)))

    def test_holds_rests_and_chords_make_the_expected_notes(self):
        track = music.parse('instrument a wave=tri\ninstrument d wave=kick\n'
                            'pattern p\n  a c4 - - . c4+e4 | . g#3 -\n  d x .\nend\nsong p p\n')
        notes, steps = music.events(track)
        self.assertEqual(steps, 16)
        melodic = [(s, n, v) for s, n, i, v in notes if i == 'a']
        self.assertEqual(melodic[:4], [(0, 3, 60), (4, 1, 60), (4, 1, 64), (6, 2, 56)])
        self.assertEqual(melodic[4][0], 8)
        drums = [s for s, _, i, _ in notes if i == 'd']
        self.assertEqual(drums, [0, 2, 4, 6, 8, 10, 12, 14])

    def test_errors_name_their_line(self):
        cases = {
            'a note that is not one': ('instrument a\npattern p\n  a h4\nend\n', 'line 3'),
            'an unknown instrument': ('pattern p\n  b c4\nend\n', 'line 2'),
            'an unknown setting': ('instrument a loudness=3\n', 'line 1'),
            'an unknown pattern in the song': ('song nothing\n', 'nothing'),
            'an empty song': ('tempo 100\n', 'empty'),
            'no tempo': ('tempo 0\n', 'line 1'),
        }
        for what, (text, expected) in cases.items():
            with self.subTest(what):
                with self.assertRaises(music.TrackError) as caught:
                    music.render(music.parse(text), 0)
                self.assertIn(expected, str(caught.exception))


if __name__ == '__main__':
    unittest.main()
