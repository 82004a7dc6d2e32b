"""The programs that workers run: each in a session of its own, all of them ended when the run is interrupted."""

import os
import signal
import threading
import time

_lock = threading.Lock()
_processes = set()
_stopped = False


class Stopped(Exception):
    """The run was interrupted: what a program did is no result."""


def begun(process):
    with _lock:
        _processes.add(process)
    if _stopped:
        _signal(process, signal.SIGKILL)


def end(process):
    """Kills what the program left running. Raises Stopped when the program was ended from here."""
    _signal(process, signal.SIGKILL)
    process.wait()
    with _lock:
        _processes.discard(process)
    if _stopped:
        raise Stopped


def stop():
    """Ends what runs: with a request first, since the build's compilers are in groups of their own, which it ends."""
    global _stopped
    _stopped = True
    with _lock:
        processes = list(_processes)
    for process in processes:
        _signal(process, signal.SIGTERM)
    limit = time.monotonic() + 5
    while any(process.poll() is None for process in processes) and time.monotonic() < limit:
        time.sleep(0.02)
    for process in processes:
        _signal(process, signal.SIGKILL)


def _signal(process, number):
    try:
        os.killpg(process.pid, number)
    except ProcessLookupError:
        pass
