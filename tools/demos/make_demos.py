#!/usr/bin/env python3
"""Writes the input of the shipped demos: one scripted player per level.

Each demo is what a player's hands would send: bound command texts at
fixed world steps (40 a second) and an aim point. The aim points are far
away, so they give a direction whatever the player's position. The files
written here carry no world hashes; the game adds them:

    python3 tools/demos/make_demos.py demos
    cd build/game && ./brindlequay +set skiplogo 1 +rehashdemo test +quit

(scripts/make-demos.sh does both for every level).
"""
import math
import os
import sys

STEPS_PER_SECOND = 40
FAR = 1.0e6

WEAPONS = ["pistol", "plasmagun", "shotgun", "chaingun", "grenadelauncher",
           "rocketlauncher", "railgun", "lightninggun", "swarm"]


class Script:
    def __init__(self, level, entry="", seed=1):
        self.level = level
        self.entry = entry
        self.seed = seed
        self.events = []   # (step, order, text)
        self.aims = {}     # step -> (x, y)
        self.length = 0.0

    def step(self, t):
        return int(round(t * STEPS_PER_SECOND))

    def at(self, t, text):
        self.events.append((self.step(t), len(self.events), text))
        self.length = max(self.length, t)

    def hold(self, t, seconds, command, argument=""):
        suffix = " " + argument if argument else ""
        self.at(t, "+" + command + suffix)
        self.at(t + seconds, "-" + command + suffix)

    def aim(self, t, degrees):
        a = math.radians(degrees)
        self.aims[self.step(t)] = (FAR * math.cos(a), FAR * math.sin(a))

    # What a player does, built from the above.
    def run(self, t, seconds, right=True, jump_every=1.6):
        self.hold(t, seconds, "moveright" if right else "moveleft")
        j = t + 0.4
        while jump_every and j < t + seconds - 0.2:
            self.hold(j, 0.35, "moveup")
            j += jump_every

    def fire(self, t, seconds, weapon, degrees=0.0):
        self.at(t, "useitem " + weapon)
        self.aim(t, degrees)
        self.hold(t + 0.1, seconds, "attack")

    def grapple(self, t, seconds, degrees=60.0):
        self.aim(t, degrees)
        self.hold(t, seconds, "fire", "1")

    def write(self, path, extra_seconds=1.0):
        steps = self.step(self.length + extra_seconds)
        lines = ["brindlequay demo 1", "level " + self.level,
                 "entry" + (" " + self.entry if self.entry else ""),
                 "seed %d" % self.seed, "var gravity -80", "var movemode 2",
                 "var maxgibs 100", "hashinterval 40", "steps %d" % steps]
        records = []
        for step, order, text in self.events:
            if step < steps:
                records.append((step, 0, order, "c %d %s" % (step, text)))
        for step, (x, y) in self.aims.items():
            if step < steps:
                records.append((step, 1, 0, "a %d %.9g %.9g" % (step, x, y)))
        records.sort()
        lines += [r[3] for r in records]
        lines.append("end")
        with open(path, "w") as out:
            out.write("\n".join(lines) + "\n")


def patrol(s, start, seconds, weapons, pattern="R"):
    """Runs, jumps, swings on the hook and fires each weapon in turn; each
    five-second leg goes the way the next letter of `pattern` says, so a
    player who reaches a wall turns round rather than stand at it."""
    t = start
    i = 0
    while t < start + seconds:
        right = pattern[i % len(pattern)] == "R"
        s.run(t, 3.0, right=right)
        s.fire(t + 1.0, 1.2, weapons[i % len(weapons)],
               degrees=(0, 12, -8, 25)[i % 4] + (0 if right else 180))
        s.grapple(t + 3.1, 0.9, degrees=55 if right else 125)
        s.run(t + 3.1, 0.9, right=right, jump_every=0)
        s.at(t + 4.2, "nextweap")
        s.hold(t + 4.3, 0.4, "attack")
        t += 5.0
        i += 1
    return t


def test_level():
    s = Script("test", seed=11)
    s.at(0.0, "giveall")
    # The doors and the health west of the start, then east past the
    # armour walkway, the water and the jump pad to the barrels.
    s.run(0.5, 4.0, right=False, jump_every=0)
    s.fire(2.0, 1.0, "shotgun", degrees=180)
    s.grapple(4.6, 1.0, degrees=100)
    t = patrol(s, 6.0, 50.0, WEAPONS, pattern="RRRRLLRRRL")
    s.run(t, 4.0, right=False)
    s.fire(t + 4.2, 2.0, "rocketlauncher", degrees=-20)
    return s


def weapons_level():
    s = Script("weapons", seed=12)
    # Walks over the row of guns first: every weapon is picked up, not given.
    s.run(0.5, 3.0, jump_every=0)
    t = 4.0
    for i, weapon in enumerate(WEAPONS):
        s.fire(t, 1.5, weapon, degrees=(0, 5, -5, 10)[i % 4])
        s.run(t + 1.7, 1.2, jump_every=0.6)
        t += 3.2
    s.grapple(t, 1.0, degrees=70)
    patrol(s, t + 1.5, 28.0, WEAPONS, pattern="RRLRLL")
    return s


def pickups_level():
    s = Script("pickups", seed=13)
    # Health, armour and the gun row, then the cash run and the power-ups.
    s.run(0.5, 6.0, jump_every=0)
    t = patrol(s, 7.0, 30.0, WEAPONS, pattern="RRRLRL")
    s.run(t, 6.0, right=False, jump_every=1.0)
    patrol(s, t + 6.5, 20.0, WEAPONS, pattern="RRL")
    return s


def logic_level():
    s = Script("logic", seed=14)
    s.at(0.0, "giveall")
    s.at(0.0, "god")
    t = 0.5
    # Slow, with stops at the switches, the battery and the waves.
    for leg in range(12):
        s.run(t, 2.5, right="RRRRRRRLLLRR"[leg] == "R", jump_every=1.2)
        s.fire(t + 2.6, 1.0, WEAPONS[leg % len(WEAPONS)], degrees=(10, 40, 0)[leg % 3])
        s.grapple(t + 3.8, 0.8, degrees=65)
        t += 5.0
    s.run(t, 3.0, right=False)
    return s


def enemies_level():
    s = Script("enemies", seed=15)
    s.at(0.0, "god")
    s.at(0.0, "giveall")
    t = 0.5
    # Room by room: walk in, fight, move on.
    for room in range(14):
        s.run(t, 2.0, jump_every=1.0)
        s.fire(t + 2.1, 2.0, WEAPONS[room % len(WEAPONS)], degrees=(0, 10, 20, -5)[room % 4])
        s.grapple(t + 4.2, 0.7, degrees=60)
        s.hold(t + 4.0, 0.7, "moveleft")
        t += 5.0
    return s


LEVELS = {"test": test_level, "weapons": weapons_level, "pickups": pickups_level,
          "logic": logic_level, "enemies": enemies_level}


def main(argv):
    out_dir = argv[1] if len(argv) > 1 else "demos"
    os.makedirs(out_dir, exist_ok=True)
    for name, build in LEVELS.items():
        build().write(os.path.join(out_dir, name + ".dem"))
        print("wrote", os.path.join(out_dir, name + ".dem"))


if __name__ == "__main__":
    main(sys.argv)
