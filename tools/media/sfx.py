"""A small sfxr-style synthesiser.

A sound is a sum of voices. Each voice is an oscillator (square with duty,
saw, triangle, sine, or sfxr's sample-and-hold noise) with a pitch slide,
vibrato, an arpeggio jump and a repeat, shaped by an attack/sustain/punch/
decay envelope and swept one-pole low- and high-pass filters. Everything is
driven by a seeded generator, so the same recipe gives the same samples.
"""
import io
import math
import struct
import wave

import numpy as np

RATE = 44100


def _polyblep(p, dt):
    """Band-limited step correction for a phase p in [0, 1)."""
    out = np.zeros_like(p)
    dt = np.maximum(dt, 1e-9)
    m = p < dt
    t = p[m] / dt[m]
    out[m] = t + t - t * t - 1.0
    m2 = p > 1.0 - dt
    t = (p[m2] - 1.0) / dt[m2]
    out[m2] = t * t + t + t + 1.0
    return out


def _onepole(x, coeff, highpass=False):
    """One-pole low-pass with a per-sample coefficient (or its high-pass
    complement)."""
    xs = x.tolist()
    cs = coeff.tolist() if hasattr(coeff, 'tolist') else [coeff] * len(xs)
    y = 0.0
    out = [0.0] * len(xs)
    for i, v in enumerate(xs):
        y += cs[i] * (v - y)
        out[i] = y
    out = np.array(out)
    return x - out if highpass else out


def _cutoff_coeff(f_start, f_end, n):
    f = np.geomspace(max(f_start, 1.0), max(f_end, 1.0), n)
    return 1.0 - np.exp(-2.0 * np.pi * np.minimum(f, RATE * 0.45) / RATE)


def voice(rng, wave='square', freq=440.0, freq_end=None, attack=0.0, sustain=0.1, decay=0.2, punch=0.0,
          duty=0.5, duty_end=None, vib_depth=0.0, vib_speed=0.0, arp_time=None, arp_ratio=1.0,
          repeat=None, lpf=None, lpf_end=None, hpf=None, hpf_end=None, gain=1.0, delay=0.0,
          curve=2.0):
    n = max(1, int((attack + sustain + decay) * RATE))
    t = np.arange(n) / RATE
    tp = np.mod(t, repeat) if repeat else t
    dur = attack + sustain + decay
    span = repeat if repeat else dur
    if freq_end is None:
        f = np.full(n, freq, float)
    else:
        f = freq * (freq_end / freq) ** np.clip(tp / span, 0, 1)
    if vib_depth:
        f = f * (1.0 + vib_depth * np.sin(2 * np.pi * vib_speed * t))
    if arp_time is not None:
        f = np.where(tp >= arp_time, f * arp_ratio, f)
    f = np.clip(f, 1.0, RATE * 0.45)
    dt = f / RATE
    phase = np.mod(np.cumsum(dt), 1.0)
    if wave == 'sine':
        s = np.sin(2 * np.pi * phase)
    elif wave == 'tri':
        s = 1.0 - 4.0 * np.abs(phase - 0.5)
    elif wave == 'saw':
        s = 2.0 * phase - 1.0 - _polyblep(phase, dt)
    elif wave == 'square':
        d = np.full(n, duty) if duty_end is None else np.linspace(duty, duty_end, n)
        d = np.clip(d, 0.02, 0.98)
        p2 = np.mod(phase - d, 1.0)
        s = np.where(phase < d, 1.0, -1.0) + _polyblep(phase, dt) - _polyblep(p2, dt)
    elif wave == 'noise':
        # sfxr noise: a new random level every half period of the pitch.
        steps = np.floor(np.cumsum(dt) * 2.0).astype(np.int64)
        table = rng.uniform(-1.0, 1.0, int(steps[-1]) + 2)
        s = table[steps]
    elif wave == 'white':
        s = rng.uniform(-1.0, 1.0, n)
    else:
        raise ValueError(wave)
    env = np.ones(n)
    na = int(attack * RATE)
    ns = int(sustain * RATE)
    if na > 0:
        env[:na] = np.linspace(0, 1, na)
    if ns > 0:
        env[na:na + ns] = 1.0 + punch * (1.0 - np.linspace(0, 1, ns))
    nd = n - na - ns
    if nd > 0:
        env[na + ns:] = (1.0 + 0.0) * (1.0 - np.linspace(0, 1, nd)) ** curve
    s = s * env
    if lpf is not None:
        s = _onepole(s, _cutoff_coeff(lpf, lpf_end or lpf, n))
    if hpf is not None:
        s = _onepole(s, _cutoff_coeff(hpf, hpf_end or hpf, n), highpass=True)
    s = s * gain
    if delay > 0:
        s = np.concatenate([np.zeros(int(delay * RATE)), s])
    return s


def mix(*parts):
    n = max(len(p) for p in parts)
    out = np.zeros(n)
    for p in parts:
        out[:len(p)] += p
    return out


def drive(x, amount):
    """Soft saturation: denser, louder transients without hard clipping."""
    if amount <= 0:
        return x
    return np.tanh(x * amount) / math.tanh(amount)


def fade_edges(x, fade_in=0.002, fade_out=0.01):
    x = x.copy()
    a = min(len(x), int(fade_in * RATE))
    b = min(len(x), int(fade_out * RATE))
    if a > 0:
        x[:a] *= np.linspace(0, 1, a)
    if b > 0:
        x[-b:] *= np.linspace(1, 0, b)
    return x


def make_loop(x, fade=0.08):
    """Cross-fade the tail into the head so the sample loops without a seam."""
    nf = int(fade * RATE)
    body = x[:len(x) - nf].copy()
    ramp = np.linspace(0, 1, nf)
    body[:nf] = body[:nf] * ramp + x[len(x) - nf:] * (1 - ramp)
    return body


def short_term_rms(x, window=0.05):
    n = max(1, int(window * RATE))
    if len(x) < n:
        return float(np.sqrt(np.mean(x * x)))
    c = np.cumsum(np.concatenate([[0.0], x * x]))
    e = (c[n:] - c[:-n]) / n
    return float(np.sqrt(e.max()))


PEAK = 10 ** (-1.0 / 20)  # -1 dBFS


def normalise(x, target_db=-14.0):
    """Scale to a common short-term loudness, never above -1 dBFS peak."""
    rms = short_term_rms(x)
    if rms <= 1e-9:
        return x
    g = 10 ** (target_db / 20) / rms
    peak = np.max(np.abs(x)) * g
    if peak > PEAK:
        g *= PEAK / peak
    return x * g


def wav_bytes(x, rate=RATE):
    pcm = np.round(np.clip(x, -1.0, 1.0) * 32767).astype('<i2')
    buf = io.BytesIO()
    w = wave.open(buf, 'wb')
    w.setnchannels(1)
    w.setsampwidth(2)
    w.setframerate(rate)
    w.writeframes(pcm.tobytes())
    w.close()
    return buf.getvalue()
