"""Runs the test programs of scripts/mutants so that a mutated library can harm nothing: in namespaces of its own it
sees the machine read-only, with places for files that are gone afterwards, no disk, no network, and no rights over
the machine."""
import os
import re
import signal
import subprocess
import threading

# $1 is the worker's folder: the programs, and an empty folder `view`. File systems that are mounted elsewhere stay
# outside. The shell stays the first process of its namespace, which the kernel would spare signals.
VIEW = r"""
set -e
trap 'exit 77' EXIT
view=$1/view
mount --bind / "$view"
mount -o remount,bind,ro "$view"
mount -t proc proc "$view/proc"
mount -t tmpfs -o mode=0755 tmpfs "$view/run"
mkdir "$view/run/tests"
mount --bind "$1" "$view/run/tests"
mount -o remount,bind,ro "$view/run/tests"
mount -t tmpfs -o mode=1777,size=1g tmpfs "$view/tmp"
mount -t tmpfs -o mode=0755 tmpfs "$view/dev"
mkdir -m 1777 "$view/dev/shm"
mount -t tmpfs -o mode=1777,size=1g tmpfs "$view/dev/shm"
for device in null zero full random urandom; do
    touch "$view/dev/$device"
    mount --bind "/dev/$device" "$view/dev/$device"
done
ln -s /proc/self/fd "$view/dev/fd"
trap - EXIT
shift
set +e
chroot "$view" setpriv --bounding-set=-all,+chown,+dac_override,+fowner,+fsetid,+setuid,+setgid --no-new-privs \
    /bin/sh -c 'cd /tmp && exec "$@"' sh "$@"
exit $?
"""
NAMESPACES = ["unshare", "--mount", "--pid", "--net", "--ipc", "--fork", "--kill-child",
              "--propagation", "private", "--", "bash", "-c", VIEW, "bash"]
# When this script ends, by whatever, so does what it started.
LIMITED = ["setpriv", "--pdeathsig", "KILL", "bash", "-c",
           'ulimit -c 0; ulimit -v "$1"; ulimit -t "$2"; shift 2; exec "$@"', "bash"]
MEMORY = 8 << 20  # KiB of address space a process
OUTPUT = 4 << 20  # bytes; a program that writes more has lost its way
PATIENCE = 20  # times the computing time that a program may take altogether
REFUSED, EXCEEDED_CPU = 77, 128 + signal.SIGXCPU


def run(folder, command, seconds, view=True):
    """What the program in `folder` wrote, its exit code, and whether it took too long. The limit is one of computing
    time, so that a busy machine ends nothing; one that waits for ever takes longer to be found out."""
    program = f"/run/tests/{command[0]}" if view else f"{folder}/{command[0]}"
    words = LIMITED + [str(MEMORY), str(int(seconds) + 1)] + (NAMESPACES + [str(folder)] if view else [])
    environment = {name: value for name, value in os.environ.items() if not re.match("VEXLOR_|GTEST_|TMPDIR$", name)}
    process = subprocess.Popen(words + [program, *command[1:]], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                               stderr=subprocess.STDOUT, start_new_session=True, env=environment)
    late = threading.Event()

    def end():
        late.set()
        os.killpg(process.pid, signal.SIGKILL)
    timer = threading.Timer(PATIENCE * seconds, end)
    timer.start()
    try:
        text = process.stdout.read(OUTPUT).decode(errors="replace")
        process.stdout.close()
        code = process.wait()
    finally:
        timer.cancel()
        if process.poll() is None:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
    return text, code, late.is_set() or code in (EXCEEDED_CPU, -signal.SIGXCPU)


def reason_against(folder):
    """Why programs cannot be shut in here; empty if they can."""
    if os.geteuid() != 0:
        return "only root can shut them in"
    (folder / "probe").write_text("#!/bin/sh\n! touch /etc/passwd 2>/dev/null && touch /tmp/probe\n")
    (folder / "probe").chmod(0o755)
    text, code, _ = run(folder, ["probe"], 5)
    return "" if code == 0 else f"this machine refuses the mounts: {text.strip() or code}"
