#!/usr/bin/env python3
"""Soak: many runs of orvanta_cli against orvanta_desktop_sim, each with one
fault drawn from a fixed seed, and the checks every run must pass.

  soak.py BUILD RUNS SEED             the soak
  soak.py BUILD --concurrent SECONDS  8 CLI processes at once against one
                                      simulator, then its state checked

Each run must end within its bound, exit with 0, 1 or the value of a
desktop_api code (or the injected one), write on stderr only lines of the
known shapes, print under --format json one line of JSON or nothing, leave
no process behind, and open no more descriptors than the clean run of the
same command. The simulator takes the fixed port 7768: run the soak alone
on the machine or in a network namespace of its own.
"""
import collections, json, os, random, re, signal, subprocess, sys, tempfile, time

T = "orvanta:track:harbourlights"
T2 = "orvanta:track:ferrymanswaltz"
PL = "orvanta:playlist:morningferry"
# One or more commands of every family.
COMMANDS = [
    "play " + T, "pause", "resume", "next", "previous", "seek 30", "shuffle on", "repeat track",
    "speed 1.5", "volume 0.4", "now-playing", "devices list", "queue list", "queue add " + T2,
    "rondo status", "search harbour", "lookup " + T, "taste", "history recent", "pod shows",
    "library list", "library contains " + T, "library add " + T2, "library remove " + T2,
    "playlist get " + PL, "folder list",
    "me", "status", "navigate " + T, "version",
]
BATCH = '{"ops":[{"op":"library_add","uris":["%s"]},{"op":"library_contains","uris":["%s"]}]}' % (T2, T2)
CODES = list(range(1, 25)) + [-32600]
ALLOWED_STATUS = {0, 1} | {c & 255 for c in CODES}
STDERR_LINE = re.compile(r"^(Error: .+|Failed to connect to Orvanta desktop client: .+|"
                         r"[A-Za-z][\w ,'-]*: .+|folder list timed out after 8s .+|"
                         r"Orvanta desktop client is not running)$")
BAD_STDERR = re.compile(r"Sanitizer|runtime error|terminate called|Segmentation|core dumped|Assertion")


def faults(rng, methods):
    """One fault: its simulator flags, a name for the report and whether a
    listener is started at all."""
    m = rng.choice(methods)
    # The faults that spoil the hello cost the whole connect schedule, some
    # 7 s, and so come rarely.
    kind = rng.choices(["none", "fail", "delay", "hang", "close", "wrong-id", "garbage", "oversize",
                        "reject-hello", "silent-hello", "spoil", "no-listener"],
                       [10, 24, 10, 3, 10, 10, 10, 10, 1, 1, 2, 1])[0]
    if kind == "fail":
        cat = rng.choice(["", ":desktop_api", ":failure_source"])
        return ["--fail", "%s=%d%s" % (m, rng.choice(CODES if cat != ":failure_source" else range(1, 11)), cat)], kind
    make = {
        "delay": lambda: ["--delay", "%s=%d" % (m, rng.randrange(0, 1500))],
        "hang": lambda: ["--hang", m],
        "close": lambda: ["--close-after", str(rng.randrange(1, 4))],
        "wrong-id": lambda: ["--wrong-id", m],
        "garbage": lambda: ["--garbage-frame", m + "=stray"],
        "oversize": lambda: ["--garbage-frame", m + "=oversize"],
        "spoil": lambda: ["--spoil-first-hello", rng.choice(["reject", "garbled", "bad-completion"])],
        "reject-hello": lambda: ["--reject-hello"],
        "silent-hello": lambda: ["--silent-hello"],
    }
    return make.get(kind, list)(), kind


class Soak:
    def __init__(self, build):
        self.build = os.path.abspath(build)
        self.cli = os.path.join(self.build, "orvanta_cli")
        self.home = tempfile.mkdtemp(prefix="orvanta-soak-")
        self.fd_peak = {}

    def env(self, tag):
        env = dict(os.environ, HOME=self.home, XDG_DATA_HOME=os.path.join(self.home, "data"),
                   ORVANTA_SOAK_RUN=tag)
        env.pop("DISPLAY", None)
        return env

    def start_sim(self, flags, log=None):
        ready = os.path.join(self.home, "ready")
        if os.path.exists(ready):
            os.unlink(ready)
        args = [os.path.join(self.build, "orvanta_desktop_sim"), "--port", "7768", "--ready-file", ready] + flags
        if log:
            args += ["--log", log]
        sim = subprocess.Popen(args, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        for _ in range(500):
            if os.path.exists(ready) and os.path.getsize(ready) > 0:
                return sim
            time.sleep(0.005)
        raise RuntimeError("the simulator did not start")

    @staticmethod
    def stop_sim(sim):
        if sim:
            sim.send_signal(signal.SIGTERM)
            sim.wait(5)

    def run_cli(self, words, tag, stdin=None, fds=False):
        """Runs one command; returns status, stdout, stderr, seconds, peak fd."""
        trace = os.path.join(self.home, "trace")
        args = [self.cli] + words
        if fds:
            args = ["strace", "-f", "-qq", "-o", trace, "-e", "status=successful", "-e",
                    "trace=open,openat,socket,accept4,dup,dup2,dup3,pipe,pipe2,eventfd2,epoll_create1,"
                    "timerfd_create,memfd_create,signalfd4,inotify_init1"] + args
        start = time.monotonic()
        p = subprocess.run(args, input=stdin, capture_output=True, env=self.env(tag), timeout=30)
        took = time.monotonic() - start
        peak = None
        if fds:
            text = open(trace).read()
            numbers = re.findall(r"\) = (\d+)$", text, re.M) + re.findall(r"pipe2?\(\[(\d+), (\d+)\]", text)
            peak = max((int(n) for group in numbers for n in ([group] if isinstance(group, str) else group)),
                       default=0)
        return p.returncode, p.stdout.decode("utf-8", "replace"), p.stderr.decode("utf-8", "replace"), took, peak

    def leftovers(self, tag):
        """Processes of run `tag` still alive a second after it ended."""
        mark = ("ORVANTA_SOAK_RUN=" + tag).encode()
        for _ in range(20):
            found = []
            for pid in filter(str.isdigit, os.listdir("/proc")):
                try:
                    if mark in open("/proc/%s/environ" % pid, "rb").read().split(b"\0"):
                        found.append(open("/proc/%s/comm" % pid).read().strip())
                except OSError:
                    pass
            if not found:
                break
            time.sleep(0.05)
        return found

    def methods_of(self, words):
        """The wire methods a clean run of `words` calls, and whether its
        output under --format json is JSON."""
        log = os.path.join(self.home, "methods.log")
        open(log, "w").close()
        sim = self.start_sim([], log)
        try:
            out = self.run_cli(words + ["--format", "json"], "probe",
                               BATCH.encode() if words[:2] == ["library", "batch"] else None)[1]
        finally:
            self.stop_sim(sim)
        methods = {json.loads(line)["method"] for line in open(log)}
        return (sorted(methods) or ["authorize_connection"]), parses(out)


def parses(text):
    try:
        json.loads(text)
        return True
    except ValueError:
        return False


def draw(rng):
    if rng.random() < 0.06:
        return ["library", "batch"] + (["--format", "json"] if rng.random() < 0.5 else []), BATCH
    words = rng.choice(COMMANDS).split()
    if rng.random() < 0.5:
        words += ["--format", "json"]
    return words, None


def check(result, words, kind, flags, use_fds, clean_peak, json_capable):
    status, out, err, took, peak = result
    problems = []
    # A fault that spoils the hello runs the whole connect schedule.
    slow = kind in ("hang", "no-listener", "silent-hello", "reject-hello", "spoil", "close") or \
        any("authorize_connection" in f for f in flags)
    bound = (12.0 if slow else 4.0) + (3.0 if use_fds else 0.0)
    if took > bound:
        problems.append("took %.1f s" % took)
    allowed = set(ALLOWED_STATUS)
    if flags and flags[0] == "--fail":
        allowed.add(int(re.match(r".*=(-?\d+)", flags[1]).group(1)) & 255)
    if status not in allowed:
        problems.append("status %d" % status)
    for line in err.splitlines():
        if BAD_STDERR.search(line) or not STDERR_LINE.match(line):
            problems.append("stderr: " + line[:120])
    if "--format" in words and json_capable and "batch" not in words and out:
        lines = out.split("\n")
        if len(lines) != 2 or lines[1]:
            problems.append("json output is not one line")
        elif not parses(lines[0]):
            problems.append("json output does not parse")
    if use_fds and clean_peak is not None and peak > clean_peak:
        problems.append("descriptors: %d, clean run %d" % (peak, clean_peak))
    return problems


def outcome(status, err):
    if status == 0:
        return "0 ok"
    first = err.splitlines()[0] if err else ""
    first = re.sub(r"'[^']*'|\"[^\"]*\"|\d+", "_", first)[:70]
    return "%d %s" % (status, first)


def soak(build, runs, seed):
    rng = random.Random(seed)
    s = Soak(build)
    outcomes = collections.Counter()
    slowest = []
    method_cache = {}
    done = 0
    # A soak started in the background ignores SIGINT; SIGTERM also ends it
    # with its table.
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    signal.signal(signal.SIGINT, signal.default_int_handler)
    try:
        for i in range(runs):
            run_one(s, rng, seed, i, method_cache, outcomes, slowest)
            done += 1
    except KeyboardInterrupt:
        print("interrupted after %d runs" % done)
    failed = outcomes.pop("failed", 0)
    print("outcomes:")
    for name, count in outcomes.most_common():
        print("  %6d  %s" % (count, name))
    print("slowest:")
    for took, words, kind in slowest:
        print("  %5.2f s  %s  [%s]" % (took, words, kind))
    print("%d passed, %d failed" % (done - failed, failed))
    return failed == 0


def run_one(s, rng, seed, i, method_cache, outcomes, slowest):
    words, stdin = draw(rng)
    flags, kind = faults(rng, ["METHOD"])
    if kind == "hang":
        # Only `folder list` has a bound on its answer; other requests
        # wait as long as the desktop client takes.
        words, stdin = ["folder", "list"] + words[len(words) - 2:] * (words[-1] == "json"), None
    key = " ".join(w for w in words if w not in ("--format", "json"))
    if key not in method_cache:
        method_cache[key] = s.methods_of(key.split())
    methods, json_capable = method_cache[key]
    if kind == "hang":
        methods = [m for m in methods if "folder" in m] or methods
    elif rng.random() < 0.9:
        methods = [m for m in methods if m != "authorize_connection"] or methods
    flags = [f.replace("METHOD", rng.choice(methods)) for f in flags]
    use_fds = i % 10 == 0  # strace on a tenth of the runs: it is slow
    if use_fds and key not in s.fd_peak:
        sim = s.start_sim([])
        try:
            s.fd_peak[key] = s.run_cli(words, "clean", stdin and stdin.encode(), True)[4]
        finally:
            s.stop_sim(sim)
    tag = "%d-%d" % (seed, i)
    sim = None if kind == "no-listener" else s.start_sim(flags)
    try:
        result = s.run_cli(words, tag, stdin and stdin.encode(), use_fds)
    except subprocess.TimeoutExpired:
        result = (-999, "", "", 30.0, 0)
    finally:
        s.stop_sim(sim)
    problems = check(result, words, kind, flags, use_fds, s.fd_peak.get(key), json_capable)
    left = s.leftovers(tag)
    if left:
        problems.append("left behind: " + ", ".join(left))
    outcomes[outcome(result[0], result[2])] += 1
    slowest[:] = sorted(slowest + [(result[3], " ".join(words), kind)], reverse=True)[:5]
    if problems:
        outcomes["failed"] += 1
        print("run %d: orvanta_cli %s [%s %s]: %s" % (i, " ".join(words), kind, " ".join(flags),
                                                   "; ".join(problems)), flush=True)


def concurrent(build, seconds, workers=8):
    """8 CLI processes at once against one simulator for `seconds`. Each
    worker adds and removes its own track in the library and adds to the
    queue; at the end the dumped state must agree with what succeeded."""
    import threading
    s = Soak(build)
    dump = os.path.join(s.home, "state.json")
    sim = s.start_sim(["--dump-state", dump])
    state0 = json.load(open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "sim",
                                         "fixture", "default_state.json")))
    saved0 = {item["uri"] for item in state0["library"]}
    tracks = [t["uri"] for t in state0["tracks"] if t["uri"] not in saved0][:workers]
    lock = threading.Lock()
    tally = collections.Counter()
    problems = []
    last = {}
    end = time.monotonic() + seconds

    def worker(n):
        rng = random.Random(n)
        uri = tracks[n % len(tracks)]
        while time.monotonic() < end:
            op = rng.choice(["library add", "library remove", "queue add", "status"])
            words = op.split() + ([] if op == "status" else [uri])
            status, out, err, took, _ = s.run_cli(words, "c%d" % n)
            with lock:
                tally[(op, status)] += 1
                if status not in ALLOWED_STATUS or BAD_STDERR.search(err) or took > 10:
                    problems.append("%s: status %d in %.1f s: %s" % (op, status, took, err.strip()[:100]))
                if status == 0 and op.startswith("library"):
                    last[uri] = op
    threads = [threading.Thread(target=worker, args=(n,)) for n in range(workers)]
    for t in threads:
        t.start()
    for t in threads:
        t.join()
    s.stop_sim(sim)
    state = json.load(open(dump))
    saved = {item["uri"] for item in state["library"]}
    for uri in tracks:
        if (uri in saved) != (last.get(uri) == "library add"):
            problems.append("library: %s saved=%s, last op %s" % (uri, uri in saved, last.get(uri)))
    if saved - set(tracks) != saved0:
        problems.append("library: other items changed")
    queued = len(state["queue"]) - len(state0["queue"])
    if queued != tally[("queue add", 0)]:
        problems.append("queue: %d entries added, %d adds succeeded" % (queued, tally[("queue add", 0)]))
    for (op, status), count in sorted(tally.items()):
        print("  %6d  %s -> %d" % (count, op, status))
    for p in problems:
        print(p)
    runs = sum(tally.values())
    print("%d passed, %d failed" % (runs - len(problems), len(problems)))
    return not problems


if __name__ == "__main__":
    if len(sys.argv) >= 4 and sys.argv[2] == "--concurrent":
        sys.exit(0 if concurrent(sys.argv[1], float(sys.argv[3])) else 1)
    sys.exit(0 if soak(sys.argv[1], int(sys.argv[2]), int(sys.argv[3])) else 1)
