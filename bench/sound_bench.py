#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""How soon, how cheaply and how steadily a song is heard, beside a lean player that does the same in the same run.

--list names the benchmarks; a name runs one and prints "bench NAME RATIO BAR YARDSTICK". Over the bar it fails.
"""

import statistics
import sys
import time

from sound_lab import Mpv, Ours, Program, SoundLab


def report(name, ratio, bar, yardstick, detail):
    print(f"{name}: {detail}", file=sys.stderr)
    print(f"bench {name} {ratio:.3f} {bar:.1f} {yardstick}", flush=True)
    return ratio <= bar


def first_sound(name, way, rounds, bar):
    with SoundLab() as lab:
        lab.make_song("song.mp3", 128, 60)
        players = [Ours(lab), Mpv(lab)]
        url = lab.url(way, "song.mp3")
        for player in players:
            player.seconds_to_first_sound(url)  # warm
        taken = [[], []]
        for _ in range(rounds):
            for player, times in zip(players, taken):
                times.append(player.seconds_to_first_sound(url))
    ours, mpv = map(statistics.median, taken)
    detail = " ".join(f"{label} {1000 * statistics.median(t):.1f} ms ({1000 * min(t):.1f} to {1000 * max(t):.1f})"
                      for label, t in zip(("ours", "mpv"), taken))
    return report(name, ours / mpv, bar, "mpv, warm, told to load the same address", detail)


def stream_cpu(name):
    seconds = 45
    with SoundLab() as lab:
        lab.make_song("song.mp3", 320, seconds + 15)
        players = [Ours(lab), Mpv(lab)]
        before = [player.cpu_seconds() for player in players]
        for player in players:
            player.play(lab.url("fast", "song.mp3"))
        begins = [player.ear.heard() for player in players]
        time.sleep(seconds)
        ours, mpv = (player.cpu_seconds() - start for player, start in zip(players, before))
        for player, begin in zip(players, begins):
            assert player.ear.samples(begin).any(), "a player was not heard"
    return report(name, ours / mpv, 0.6, "mpv's CPU time for the same song at the same time",
                  f"ours {60 / seconds * ours:.3f} s a minute, mpv {60 / seconds * mpv:.3f} s")


def program_cpu(name):
    seconds = 45
    with SoundLab() as lab:
        program = Program(lab, 320, seconds + 30)
        program.search_and_play()
        program.show_page()
        time.sleep(3)  # what the search has stirred up settles
        begin, before = program.ear.heard(), program.cpu_seconds()
        time.sleep(seconds)
        taken = (program.cpu_seconds() - before) * 60 / seconds
        sounding = (program.ear.samples(begin) != 0).mean()
        assert sounding > 0.9, f"the program was heard {sounding:.0%} of the time"
    return report(name, taken / 1.5, 1.0, "1.5 s of CPU time a minute, the page included, the companion service not",
                  f"{taken:.3f} s a minute")


def jitter_underruns(name):
    seconds = 40
    with SoundLab() as lab:
        lab.make_song("song.mp3", 128, seconds + 15)
        players = [Ours(lab), Mpv(lab)]
        begins = [player.ear.heard() for player in players]
        for player in players:
            player.play(lab.url(f"jitter/5/{48 * 1024}", "song.mp3"))
        time.sleep(seconds)
        for player, begin in zip(players, begins):
            sounding = (player.ear.samples(begin) != 0).mean()
            assert sounding > 0.8, f"a player was heard {sounding:.0%} of the time"
        ours, mpv = (player.ear.gaps(begin, player.ear.heard()) for player, begin in zip(players, begins))
    return report(name, (1 + ours) / (1 + mpv), 1.0, "gaps of mpv plus one, over the same link",
                  f"ours {ours} gaps, mpv {mpv} gaps")


BENCHMARKS = {
    "first-sound": lambda name: first_sound(name, "fast", 15, 1.0),
    "first-sound-64k": lambda name: first_sound(name, f"limited/{64 * 1024}", 15, 0.8),
    "first-sound-24k": lambda name: first_sound(name, f"limited/{24 * 1024}", 11, 0.8),
    "stream-cpu": stream_cpu,
    "program-cpu": program_cpu,
    "jitter-underruns": jitter_underruns,
}

if __name__ == "__main__":
    wanted = sys.argv[1:]
    if wanted == ["--list"]:
        print("\n".join(BENCHMARKS))
        sys.exit(0)
    passed = [BENCHMARKS[name](name) for name in wanted or BENCHMARKS]
    sys.exit(0 if all(passed) else 1)
