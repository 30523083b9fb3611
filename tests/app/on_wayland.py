"""on_wayland.py COMMAND...: runs a command in a Wayland session of its own, in memory, on which OpenGL draws in software.
Ends with the command's exit status."""

import os
import signal
import subprocess
import sys
import tempfile
import time

SOCKET = "quarlin-test"
LONGEST_START = 30


def start_compositor(folder, environment):
    server = subprocess.Popen(["weston", "--backend=headless-backend.so", "--use-pixman", "--width=1600", "--height=1200",
                               f"--socket={SOCKET}", "--no-config", "--idle-time=0"],
                              env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL)
    deadline = time.monotonic() + LONGEST_START
    while not os.path.exists(os.path.join(folder, SOCKET)):
        if server.poll() is not None or time.monotonic() > deadline:
            server.kill()
            sys.exit("on_wayland.py: weston did not start")
        time.sleep(0.02)
    return server


with tempfile.TemporaryDirectory() as folder:
    os.chmod(folder, 0o700)
    environment = {**os.environ, "XDG_RUNTIME_DIR": folder, "LIBGL_ALWAYS_SOFTWARE": "1"}
    environment.pop("DISPLAY", None)
    server = start_compositor(folder, environment)
    try:
        status = subprocess.run(sys.argv[1:], env={**environment, "WAYLAND_DISPLAY": SOCKET}).returncode
    finally:
        server.send_signal(signal.SIGTERM)
        server.wait()
sys.exit(status if status >= 0 else 128 - status)
