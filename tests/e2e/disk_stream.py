"""Reads the mixed stream SDL's disk driver wrote, for the e2e sound checks."""
import array

RATE = 44100


def read_stream(path, mark_args):
    """Returns (left, right, marks): the 16-bit stereo samples of each side,
    and each NAME:SIZE mark (the file's size at a step) as a frame index."""
    frames = array.array('h')
    with open(path, 'rb') as f:
        data = f.read()
    frames.frombytes(data[:len(data) // 4 * 4])
    marks = {}
    for arg in mark_args:
        name, size = arg.split(':')
        marks[name] = int(size) // 4
    return frames[0::2], frames[1::2], marks
