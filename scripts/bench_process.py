#!/usr/bin/env python3
"""Whole-process figures of orvanta_cli, each beside its peer in the same run.

usage: bench_process.py startup BUILD_DIR RUNS [EARLIER_CLI]
       bench_process.py crash_start BUILD_DIR RUNS
       bench_process.py batch BUILD_DIR RUNS [OPS]

startup      `orvanta_cli status` against the simulator beside the start-up
             floor (bench/startup_floor: the same frames from a small C
             program) and, when mpc and mpd are installed, `mpc status`
             against a private mpd. Runs alternate between the programs so
             that a change in the machine's load hits all alike. Prints wall
             time beyond the 100 ms pause, CPU time (user + sys, the reaped
             crash handler included), peak RSS and the stripped size, as
             medians with their spread and as ratios to the peers; then the
             time of each step of one run from strace, and perf stat.
             EARLIER_CLI, another build of orvanta_cli (with its
             crashpad_handler beside it), joins the alternation as a before
             figure.
batch        `orvanta_cli library batch` with a manifest of OPS (10 000)
             library_contains ops beside `startup_floor --contains OPS`, the
             same requests from the C floor, alternating: operations per
             second of each beyond the 100 ms pause, and their ratio.
crash_start  what starting the crash handler adds: `orvanta_cli --help` with
             a writable data directory (a handler starts) and an unwritable
             one (none starts), alternating.
"""
import os
import re
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time

PAUSE_MS = 100.0


def median(values):
    ordered = sorted(values)
    middle = len(ordered) // 2
    return ordered[middle] if len(ordered) % 2 else (ordered[middle - 1] + ordered[middle]) / 2


def spread(values):
    """The interquartile range relative to the median, in percent: how noisy a figure is."""
    ordered = sorted(values)
    q1, q3 = ordered[len(ordered) // 4], ordered[(3 * len(ordered)) // 4]
    m = median(values)
    return 100.0 * (q3 - q1) / m if m else 0.0


class Measured:
    def __init__(self):
        self.wall_ms, self.cpu_ms, self.rss_mb = [], [], []


def run_measured(argv, env=None, into=None):
    """Runs argv once with its output discarded; wall time from spawn to
    reaping, and the child's own rusage (which holds its reaped children)."""
    devnull = os.open(os.devnull, os.O_RDWR)
    try:
        start = time.perf_counter_ns()
        pid = os.posix_spawn(argv[0], argv, env if env is not None else os.environ,
                             file_actions=[(os.POSIX_SPAWN_DUP2, devnull, 0),
                                           (os.POSIX_SPAWN_DUP2, devnull, 1),
                                           (os.POSIX_SPAWN_DUP2, devnull, 2)])
        _, status, usage = os.wait4(pid, 0)
        wall = (time.perf_counter_ns() - start) / 1e6
    finally:
        os.close(devnull)
    if os.waitstatus_to_exitcode(status) != 0:
        sys.exit(f"bench: {' '.join(argv)} failed with status {os.waitstatus_to_exitcode(status)}")
    if into is not None:
        into.wall_ms.append(wall)
        into.cpu_ms.append((usage.ru_utime + usage.ru_stime) * 1000.0)
    return wall


def peak_rss_mb(argv, env=None):
    """The peak resident set of one run. The rusage that wait4 gives us holds
    the high-water mark of the image the child had before exec, which for a
    child of ours is this interpreter; GNU time's own image is small."""
    result = subprocess.run(["/usr/bin/time", "-f", "%M"] + argv, env=env, stdout=subprocess.DEVNULL,
                            stderr=subprocess.PIPE, text=True, check=True)
    return int(result.stderr.strip().splitlines()[-1]) / 1024.0


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


def free_port():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


def start_mpd(directory):
    """A private mpd with an empty library on a free port, in the foreground
    so that it is ours to stop; (None, None, None) and a note when mpd or mpc
    is not installed."""
    mpd, mpc = shutil.which("mpd"), shutil.which("mpc")
    if not mpd or not mpc:
        print("mpc/mpd not installed (apt-get install mpd mpc): the mpc row is skipped")
        return None, None, None
    port = free_port()
    music = os.path.join(directory, "music")
    os.makedirs(music)
    config = os.path.join(directory, "mpd.conf")
    with open(config, "w") as f:
        f.write(f'music_directory "{music}"\nplaylist_directory "{directory}"\n'
                f'db_file "{directory}/db"\nstate_file "{directory}/state"\n'
                f'bind_to_address "127.0.0.1"\nport "{port}"\n'
                'audio_output {\n type "null"\n name "null"\n}\n')
    daemon = subprocess.Popen([mpd, "--no-daemon", config], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    env = dict(os.environ, MPD_HOST="127.0.0.1", MPD_PORT=str(port))
    deadline = time.monotonic() + 10
    while subprocess.call([mpc, "status"], env=env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) != 0:
        if daemon.poll() is not None or time.monotonic() > deadline:
            print("mpd did not start: the mpc row is skipped")
            stop_mpd(daemon)
            return None, None, None
        time.sleep(0.05)
    return [mpc, "status"], env, daemon


def stop_mpd(daemon):
    if daemon is not None and daemon.poll() is None:
        daemon.terminate()
        daemon.wait()


def stripped_size_mb(program):
    with tempfile.TemporaryDirectory() as directory:
        copy = os.path.join(directory, "stripped")
        subprocess.run(["strip", "-o", copy, program], check=True)
        return os.path.getsize(copy) / 1e6


# Steps of one `status` run, each from the first system call that matches
# its pattern (after the previous step's) to the next step's start. The
# times come from strace, which slows every system call down: they show
# where the time goes, not what it is without the tracer.
STEPS = [
    ("loading, static init", r"execve\("),
    ("crash reporter", r"fcntl\(0,"),
    ("runner, IO thread", r"clone3\("),
    ("running check", r'openat\(AT_FDCWD, "/proc"'),
    ("connect", r"socket\(AF_INET"),
    ("hello", r"sendto\("),
    ("login subscription", r"sendto\("),
    ("until the pause", r"recvfrom\(\d+, \"\{"),
    ("pause (mandated)", r"clock_nanosleep\("),
    ("handler, disconnect", r"clock_nanosleep resumed|<\.\.\. clock_nanosleep"),
    ("output", r"write\(1,"),
    ("exit", r"exit_group\("),
]
LINE = re.compile(r"^(\d+)\s+(\d+\.\d+)\s+(.*)$")


def strace_steps(argv, runs):
    if not shutil.which("strace"):
        print("strace not installed: no step breakdown")
        return
    per_step = {name: [] for name, _ in STEPS}
    per_step["total"] = []
    calls = {name: [] for name, _ in STEPS}
    first_byte, after_last_byte = [], []
    with tempfile.TemporaryDirectory() as directory:
        out = os.path.join(directory, "trace")
        for _ in range(runs):
            subprocess.run(["strace", "-f", "-ttt", "-o", out] + argv,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
            lines = []
            with open(out) as f:
                for raw in f:
                    m = LINE.match(raw)
                    if m:
                        lines.append((float(m.group(2)), m.group(3)))
            marks, at = [], 0
            for name, pattern in STEPS:
                regex = re.compile(pattern)
                while at < len(lines) and not regex.search(lines[at][1]):
                    at += 1
                if at == len(lines):
                    break
                marks.append((name, at))
                # The first login notification may come during the pause;
                # the last step before the pause ends where it starts.
                if name != "until the pause":
                    at += 1
            if len(marks) != len(STEPS):
                continue
            end = lines[-1][0]
            for i, (name, index) in enumerate(marks):
                nxt = lines[marks[i + 1][1]][0] if i + 1 < len(marks) else end
                per_step[name].append((nxt - lines[index][0]) * 1000.0)
                calls[name].append((marks[i + 1][1] if i + 1 < len(marks) else len(lines)) - index)
            per_step["total"].append((end - lines[0][0]) * 1000.0)
            # The first login notification comes during the pause, so the
            # way out is counted from whichever ends later.
            sends = [i for i, (_, text) in enumerate(lines) if text.startswith("sendto(")]
            receives = [i for i, (_, text) in enumerate(lines) if re.match(r"recvfrom\(\d+, \"", text)]
            pause_end = lines[dict(marks)["handler, disconnect"]][0]
            if sends and receives:
                first_byte.append((lines[sends[0]][0] - lines[0][0]) * 1000.0)
                after_last_byte.append((end - max(lines[receives[-1]][0], pause_end)) * 1000.0)
    if not per_step["total"]:
        print("strace: no run showed every step")
        return
    print(f"\nSteps of `{' '.join(os.path.basename(a) for a in argv[:2])}` under strace -f, median of "
          f"{len(per_step['total'])} runs (strace slows each system call, so these add up to more than the"
          " untraced run)")
    print(f"{'step':<22}{'ms':>8}{'syscalls':>10}")
    for name, _ in STEPS:
        print(f"{name:<22}{median(per_step[name]):>8.3f}{median(calls[name]):>10.0f}")
    print(f"{'total':<22}{median(per_step['total']):>8.3f}")
    if first_byte:
        print(f"exec to first byte sent: {median(first_byte):.3f} ms; last byte received (or the pause's end) to exit:"
              f" {median(after_last_byte):.3f} ms")


def perf_stat(argv, runs, label):
    if not shutil.which("perf"):
        return
    result = subprocess.run(["perf", "stat", "-r", str(runs), "-e",
                             "task-clock,page-faults,context-switches,cpu-migrations", "--"] + argv,
                            stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    if result.returncode != 0:
        print(f"perf stat unavailable for {label}")
        return
    print(f"perf stat -r {runs}, {label}:")
    for line in result.stderr.splitlines():
        line = line.strip()
        if any(key in line for key in ("task-clock", "page-faults", "context-switches", "elapsed")):
            print("  " + re.sub(r"\s+", " ", line))


def ratio_cell(ours, peer, goal=None, at_most=True):
    if peer is None or peer == 0:
        return f"{'-':>10}"
    r = ours / peer
    mark = ""
    if goal is not None:
        mark = " ok" if (r <= goal if at_most else r >= goal) else " MISS"
    return f"{r:>6.2f}x{mark}"


def startup(build, runs, earlier=None):
    cli = os.path.join(build, "orvanta_cli")
    floor = os.path.join(build, "bench", "startup_floor")
    sim = start_simulator(build)
    mpd_dir = tempfile.mkdtemp(prefix="orvanta-bench-mpd-")
    daemon = None
    try:
        mpc_argv, mpc_env, daemon = start_mpd(mpd_dir)
        programs = [("orvanta_cli status", [cli, "status"], None),
                    ("startup_floor", [floor], None)]
        if mpc_argv:
            programs.append(("mpc status", mpc_argv, mpc_env))
        if earlier:
            programs.append(("earlier status", [earlier, "status"], None))
        results = {label: Measured() for label, _, _ in programs}
        for label, argv, env in programs:  # warm-up: page cache, crash database
            for _ in range(3):
                run_measured(argv, env)
        for _ in range(runs):
            for label, argv, env in programs:
                run_measured(argv, env, results[label])
        for _ in range(10):
            for label, argv, env in programs:
                results[label].rss_mb.append(peak_rss_mb(argv, env))

        ours = results["orvanta_cli status"]
        base = results["startup_floor"]
        mpc = results.get("mpc status")
        print(f"Start-up: {runs} alternating runs against the simulator; median (interquartile spread in %)")
        print(f"{'program':<20}{'wall ms':>9}{'beyond pause':>14}{'CPU ms':>9}{'peak RSS MB':>13}")
        for label, _, _ in programs:
            r = results[label]
            pause = 0.0 if label == "mpc status" else PAUSE_MS
            print(f"{label:<20}{median(r.wall_ms):>9.2f}{median(r.wall_ms) - pause:>8.2f} ({spread(r.wall_ms):>2.0f}%)"
                  f"{median(r.cpu_ms):>6.2f} ({spread(r.cpu_ms):>2.0f}%){max(r.rss_mb):>13.2f}")
        beyond = median(ours.wall_ms) - PAUSE_MS
        cpu = median(ours.cpu_ms)
        rss = max(ours.rss_mb)
        size = stripped_size_mb(cli)
        print()
        print(f"{'figure':<34}{'ours':>9}{'floor':>9}{'mpc':>9}  {'vs floor':>11}  {'vs mpc':>11}  goal")
        mpc_wall = median(mpc.wall_ms) if mpc else None
        print(f"{'wall beyond the pause, ms':<34}{beyond:>9.2f}{median(base.wall_ms) - PAUSE_MS:>9.2f}"
              f"{mpc_wall if mpc_wall is not None else float('nan'):>9.2f}  "
              f"{ratio_cell(beyond, median(base.wall_ms) - PAUSE_MS)}  {ratio_cell(beyond, mpc_wall)}"
              f"  <= 2 ms {'ok' if beyond <= 2.0 else 'MISS'}")
        mpc_cpu = median(mpc.cpu_ms) if mpc else None
        print(f"{'CPU (user + sys), ms':<34}{cpu:>9.2f}{median(base.cpu_ms):>9.2f}"
              f"{mpc_cpu if mpc_cpu is not None else float('nan'):>9.2f}  "
              f"{ratio_cell(cpu, median(base.cpu_ms), 2.0)}  {ratio_cell(cpu, mpc_cpu, 1.5)}"
              "  <= 2x floor, <= 1.5x mpc")
        print(f"{'peak RSS (max of runs), MB':<34}{rss:>9.2f}{max(base.rss_mb):>9.2f}"
              f"{max(mpc.rss_mb) if mpc else float('nan'):>9.2f}  {'':>11}  {'':>11}"
              f"  <= 6 MB {'ok' if rss <= 6.0 else 'MISS'}")
        print(f"{'stripped size of orvanta_cli, MB':<34}{size:>9.2f}{stripped_size_mb(floor):>9.2f}{'':>9}"
              f"  {'':>11}  {'':>11}  <= 2 MB {'ok' if size <= 2.0 else 'MISS'} (build type of {build})")
        if earlier:
            before = results["earlier status"]
            print(f"earlier build: beyond the pause {median(before.wall_ms) - PAUSE_MS:.2f} ms, CPU "
                  f"{median(before.cpu_ms):.2f} ms, peak RSS {max(before.rss_mb):.2f} MB, stripped "
                  f"{stripped_size_mb(earlier):.2f} MB; ours / earlier: wall beyond the pause "
                  f"{ratio_cell(beyond, median(before.wall_ms) - PAUSE_MS).strip()}, CPU "
                  f"{ratio_cell(cpu, median(before.cpu_ms)).strip()}")

        strace_steps([cli, "status"], 5)
        print()
        perf_stat([cli, "status"], 20, "orvanta_cli status")
        perf_stat([floor], 20, "startup_floor")
    finally:
        stop_mpd(daemon)
        shutil.rmtree(mpd_dir, ignore_errors=True)
        sim.send_signal(signal.SIGTERM)
        sim.wait()


def crash_start(build, runs):
    argv = [os.path.join(build, "orvanta_cli"), "--help"]
    with tempfile.TemporaryDirectory(prefix="orvanta-crash-bench-") as directory:
        blocker = os.path.join(directory, "not-a-directory")
        open(blocker, "w").close()
        with_handler = dict(os.environ, XDG_DATA_HOME=os.path.join(directory, "data"))
        without = dict(os.environ, XDG_DATA_HOME=blocker)
        for env in (with_handler, without):  # warm-up: caches, and the database made once
            for _ in range(3):
                run_measured(argv, env)
        started, plain = Measured(), Measured()
        for _ in range(runs):
            run_measured(argv, with_handler, started)
            run_measured(argv, without, plain)
        if not os.path.isdir(os.path.join(directory, "data", "com.orvanta.client", "Crashpad")):
            sys.exit("bench: the writable run made no crash database")
    cost = median(started.wall_ms) - median(plain.wall_ms)
    # On a busy machine the load drifts between runs; the difference within
    # each back-to-back pair is the steadier figure.
    paired = median([a - b for a, b in zip(started.wall_ms, plain.wall_ms)])
    print(f"Crash handler start: `orvanta_cli --help`, {runs} alternating runs, ms")
    print(f"{'':<16}{'wall':>8}{'min':>8}{'CPU':>8}")
    for label, r in (("with handler", started), ("without", plain)):
        print(f"{label:<16}{median(r.wall_ms):>8.3f}{min(r.wall_ms):>8.3f}{median(r.cpu_ms):>8.3f}")
    target = 0.3
    print(f"{'start cost':<16}{cost:>8.3f}{min(started.wall_ms) - min(plain.wall_ms):>8.3f}"
          f"{median(started.cpu_ms) - median(plain.cpu_ms):>8.3f} {'ok' if cost <= target else 'MISS'}"
          f" (target <= {target} ms of wall)")
    print(f"{'paired median':<16}{paired:>8.3f}")


def batch(build, runs, ops):
    cli = os.path.join(build, "orvanta_cli")
    floor = os.path.join(build, "bench", "startup_floor")
    sim = start_simulator(build)
    try:
        with tempfile.TemporaryDirectory(prefix="orvanta-batch-bench-") as directory:
            manifest = os.path.join(directory, "manifest.json")
            with open(manifest, "w") as f:
                entries = ",".join('{"op":"library_contains","uris":["orvanta:track:%022d"]}' % i
                                   for i in range(ops))
                f.write('{"ops":[' + entries + ']}')
            programs = [("orvanta_cli library batch", [cli, "library", "batch", "--from-file", manifest]),
                        ("startup_floor --contains", [floor, "--contains", str(ops)])]
            results = {label: Measured() for label, _ in programs}
            for label, argv in programs:
                run_measured(argv)
            for _ in range(runs):
                for label, argv in programs:
                    run_measured(argv, None, results[label])
    finally:
        sim.send_signal(signal.SIGTERM)
        sim.wait()
    print(f"library batch: {ops} library_contains ops, {runs} alternating runs; median (interquartile spread)")
    rates = {}
    for label, _ in programs:
        r = results[label]
        rates[label] = ops / ((median(r.wall_ms) - PAUSE_MS) / 1000.0)
        print(f"{label:<28}{median(r.wall_ms):>9.1f} ms ({spread(r.wall_ms):>2.0f}%){rates[label]:>10.0f} ops/s"
              f"{median(r.cpu_ms):>9.1f} ms CPU")
    r = rates["orvanta_cli library batch"] / rates["startup_floor --contains"]
    print(f"batch / loopback floor: {r:.2f}x {'ok' if r >= 0.95 else 'MISS'} (goal >= 0.95x)")


def main():
    if len(sys.argv) < 4 or sys.argv[1] not in ("startup", "crash_start", "batch") or \
            len(sys.argv) > (4 if sys.argv[1] == "crash_start" else 5):
        sys.exit(__doc__)
    mode, build, runs = sys.argv[1], sys.argv[2], int(sys.argv[3])
    if mode == "startup":
        startup(build, runs, sys.argv[4] if len(sys.argv) == 5 else None)
    elif mode == "batch":
        batch(build, runs, int(sys.argv[4]) if len(sys.argv) == 5 else 10000)
    else:
        crash_start(build, runs)


if __name__ == "__main__":
    main()
