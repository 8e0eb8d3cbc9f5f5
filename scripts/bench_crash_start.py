#!/usr/bin/env python3
"""What the crash handler's start costs a command.

Runs `orvanta_cli --help` (which starts the crash reporter and nothing else
that waits) with a writable data directory, which starts a handler, and with
an unwritable one, which starts none, alternating the two so that a change
in the machine's load hits both alike. Prints the median wall time of each
and their difference, the handler's start cost.

usage: bench_crash_start.py BUILD_DIR RUNS
"""
import os
import subprocess
import sys
import tempfile
import time

TARGET_MS = 0.3


def run_once(argv, env):
    start = time.perf_counter_ns()
    status = subprocess.call(argv, env=env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wall_ms = (time.perf_counter_ns() - start) / 1e6
    if status != 0:
        sys.exit(f"bench: {' '.join(argv)} failed with status {status}")
    return wall_ms


def median(values):
    ordered = sorted(values)
    middle = len(ordered) // 2
    return ordered[middle] if len(ordered) % 2 else (ordered[middle - 1] + ordered[middle]) / 2


def main():
    build, runs = sys.argv[1], int(sys.argv[2])
    argv = [os.path.join(build, "orvanta_cli"), "--help"]
    with tempfile.TemporaryDirectory(prefix="orvanta-crash-bench-") as directory:
        blocker = os.path.join(directory, "not-a-directory")
        open(blocker, "w").close()
        with_handler = dict(os.environ, XDG_DATA_HOME=os.path.join(directory, "data"))
        without = dict(os.environ, XDG_DATA_HOME=blocker)
        for env in (with_handler, without):  # warm-up: caches, and the database made once
            for _ in range(3):
                run_once(argv, env)
        started, plain = [], []
        for _ in range(runs):
            started.append(run_once(argv, with_handler))
            plain.append(run_once(argv, without))
        pending = os.path.join(directory, "data", "com.orvanta.client", "Crashpad")
        if not os.path.isdir(pending):
            sys.exit("bench: the writable run made no crash database")
    cost = median(started) - median(plain)
    # On a busy machine the load drifts between runs; the difference within
    # each back-to-back pair is the steadier figure.
    paired = median([a - b for a, b in zip(started, plain)])
    print(f"Crash handler start: `orvanta_cli --help`, wall time of {runs} runs in ms")
    print(f"{'':<16}{'median':>8}{'min':>8}")
    print(f"{'with handler':<16}{median(started):>8.3f}{min(started):>8.3f}")
    print(f"{'without':<16}{median(plain):>8.3f}{min(plain):>8.3f}")
    mark = "ok" if cost <= TARGET_MS else "MISS"
    print(f"{'start cost':<16}{cost:>8.3f}{min(started) - min(plain):>8.3f} {mark} (target <= {TARGET_MS} ms)")
    print(f"{'paired median':<16}{paired:>8.3f}")


if __name__ == "__main__":
    main()
