#!/usr/bin/env python3
"""Times the start of the real program on a data folder: from launch until the first daily view is
filled and painted, and the resident memory then.

    bench/startup_probe.py TALLYMERE_EXECUTABLE DATA_FOLDER [RUNS]

DATA_FOLDER holds a Tallymere.db, e.g. one written by bench_business_file. The program runs with the
offscreen platform and a home, configuration and runtime folder of its own (a later start of an
earlier user: no welcome, the data folder known), so nothing of the user's is read or changed.

The program has no marker for "the view is filled", and needs none: everything up to the first
painted view runs on its one thread without waiting, after which it sleeps in the event loop. The
probe samples the CPU time of all the program's threads every millisecond and takes the moment of the
last advance before 400 ms without any as the end of the start. The first run after the file was
written is reported apart: it pays for reading the file from disk and for the one-time steps.
"""

import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time


def cpu_ns(pid):
    total = 0
    for task in pathlib.Path(f"/proc/{pid}/task").iterdir():
        try:
            total += int((task / "schedstat").read_text().split()[0])
        except (FileNotFoundError, ProcessLookupError):
            pass
    return total


def rss_kib(pid):
    for line in pathlib.Path(f"/proc/{pid}/status").read_text().splitlines():
        if line.startswith("VmRSS:"):
            return int(line.split()[1])
    return 0


def one_start(exe, data, root):
    env = dict(os.environ)
    env.update(HOME=str(root / "home"), XDG_CONFIG_HOME=str(root / "config"), XDG_DATA_HOME=str(root / "share"),
               XDG_RUNTIME_DIR=str(root / "runtime"), QT_QPA_PLATFORM="offscreen")
    ini = root / "config" / "Quillbrook" / "Tallymere.ini"
    ini.parent.mkdir(parents=True, exist_ok=True)
    ini.write_text(f"[settings]\nnumrun=5\ndatalocation={data}\n")
    (root / "runtime").mkdir(mode=0o700, exist_ok=True)

    start = time.monotonic()
    proc = subprocess.Popen([exe], env=env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    last_cpu, last_change = -1, start
    try:
        while True:
            now = time.monotonic()
            if proc.poll() is not None:
                raise RuntimeError(f"the program ended by itself (status {proc.returncode})")
            cpu = cpu_ns(proc.pid)
            if cpu != last_cpu:
                last_cpu, last_change = cpu, now
            elif now - last_change > 0.4:
                return last_change - start, rss_kib(proc.pid) / 1024.0, cpu / 1e9
            if now - start > 60:
                raise RuntimeError("the program did not settle within a minute")
            time.sleep(0.001)
    finally:
        proc.send_signal(signal.SIGKILL)
        proc.wait()


def main():
    if len(sys.argv) < 3:
        print(__doc__)
        return 2
    exe, data = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    runs = int(sys.argv[3]) if len(sys.argv) > 3 else 5
    with tempfile.TemporaryDirectory(prefix="tallymere-probe-") as tmp:
        results = [one_start(exe, data, pathlib.Path(tmp)) for _ in range(runs + 1)]
    first, rest = results[0], sorted(results[1:])
    print(f"first start: {first[0] * 1000:.0f} ms to the filled view, {first[1]:.0f} MB resident, "
          f"{first[2] * 1000:.0f} ms of CPU")
    for seconds, mb, cpu in rest:
        print(f"start: {seconds * 1000:.0f} ms to the filled view, {mb:.0f} MB resident, {cpu * 1000:.0f} ms of CPU")
    median = rest[len(rest) // 2]
    print(f"median of {len(rest)}: {median[0] * 1000:.0f} ms, {median[1]:.0f} MB")
    return 0


if __name__ == "__main__":
    sys.exit(main())
