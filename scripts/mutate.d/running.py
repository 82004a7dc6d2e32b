"""The programs that workers run: each in a session of its own, all of them ended when the run is interrupted."""

import os
import signal
import threading

_lock = threading.Lock()
_processes = set()
_stopped = False


class Stopped(Exception):
    """The run was interrupted: what a program did is no result."""


def begun(process):
    with _lock:
        _processes.add(process)
    if _stopped:
        _kill(process)


def end(process):
    """Kills what the program left running. Raises Stopped when the program was ended from here."""
    _kill(process)
    process.wait()
    with _lock:
        _processes.discard(process)
    if _stopped:
        raise Stopped


def stop():
    global _stopped
    _stopped = True
    with _lock:
        for process in _processes:
            _kill(process)


def _kill(process):
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
