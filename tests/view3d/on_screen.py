"""on_screen.py COMMAND...: runs a command with a screen of its own in memory, on which OpenGL draws in software. Ends
with the command's exit status."""

import os
import subprocess
import sys

# The server itself chooses a free display, so that tests can run at the same time.
server = subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", "1600x1200x24", "-nolisten", "tcp"],
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
try:
    display = server.stdout.readline().decode().strip()
    if not display:
        sys.exit("on_screen.py: Xvfb did not start")
    # Without an address, D-Bus would start a bus for the new screen.
    environment = {**os.environ, "DISPLAY": f":{display}", "LIBGL_ALWAYS_SOFTWARE": "1",
                   "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
    status = subprocess.run(sys.argv[1:], env=environment).returncode
finally:
    server.terminate()
    server.wait()
sys.exit(status if status >= 0 else 128 - status)
