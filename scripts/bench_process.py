#!/usr/bin/env python3
"""Whole-process figures of orvanta_cli against the simulator.

Runs each command many times, one after the other, and reports the median
and spread of the wall time, the time beyond the fixed 100 ms pause after
connecting, and the peak resident set of the CLI process.

usage: bench_process.py BUILD_DIR RUNS
"""
import os
import signal
import subprocess
import sys
import tempfile
import time

PAUSE_MS = 100.0


def start_simulator(build):
    directory = tempfile.mkdtemp(prefix="orvanta-bench-")
    ready = os.path.join(directory, "ready")
    sim = subprocess.Popen([os.path.join(build, "orvanta_desktop_sim"), "--ready-file", ready],
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    deadline = time.monotonic() + 30
    while not os.path.exists(ready):
        if sim.poll() is not None or time.monotonic() > deadline:
            sys.exit("bench: the simulator did not start")
        time.sleep(0.01)
    return sim


def run_once(argv):
    start = time.perf_counter()
    status = subprocess.call(argv, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wall_ms = (time.perf_counter() - start) * 1000.0
    if status != 0:
        sys.exit(f"bench: {' '.join(argv)} failed")
    return wall_ms


def peak_rss_mb(argv):
    # A child of ours would inherit our own high-water mark through fork, so
    # the small GNU time program starts the CLI and reports its peak.
    result = subprocess.run(["/usr/bin/time", "-f", "%M"] + argv, stdout=subprocess.DEVNULL,
                            stderr=subprocess.PIPE, text=True, check=True)
    return int(result.stderr.strip().splitlines()[-1]) / 1024.0


def median(values):
    ordered = sorted(values)
    middle = len(ordered) // 2
    return ordered[middle] if len(ordered) % 2 else (ordered[middle - 1] + ordered[middle]) / 2


def main():
    build, runs = sys.argv[1], int(sys.argv[2])
    cli = os.path.join(build, "orvanta_cli")
    sim = start_simulator(build)
    try:
        print(f"{'command':<22}{'median ms':>11}{'min':>9}{'max':>9}{'beyond pause':>14}{'peak RSS MB':>13}")
        for words in (["status"], ["pause"], ["version"]):
            argv = [cli] + words
            run_once(argv)  # warm-up
            walls = [run_once(argv) for _ in range(runs)]
            peak = max(peak_rss_mb(argv) for _ in range(10))
            pause = PAUSE_MS if words != ["version"] else 0.0
            print(f"{' '.join(words):<22}{median(walls):>11.2f}{min(walls):>9.2f}{max(walls):>9.2f}"
                  f"{median(walls) - pause:>14.2f}{peak:>13.2f}")
    finally:
        sim.send_signal(signal.SIGTERM)
        sim.wait()


if __name__ == "__main__":
    main()
