#!/usr/bin/python3
"""Drives the installed client through AT-SPI, as a screen reader or a person with a keyboard
would reach it: by roles and names, never by pixel positions.

A Werkstation makes a program folder with the build's own install step, starts
tafelkrater-server with the demo school on a free port, a private D-Bus session bus with its
own accessibility bus, Xvfb with openbox, and the client through its launcher with
QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1. End-to-end tests import this module and use find(),
wait_until() and find_and_press(); run as a program it walks the start screen, presses class 1
by name, waits for the desktop, presses a program's item by name and waits for its task button.

A tool that is missing ends the run with exit code 1 and the reason: the walk never skips.
"""

import argparse
import os
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
TOOLS = ["Xvfb", "openbox", "dbus-daemon", "dbus-send", "xprop"]


class Missing(Exception):
    pass


def free_port():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


def wait_until(check, seconds, what):
    """check() until it gives a value. A live accessible tree changes while it is walked (a
    window that closes takes its objects with it), so an error of the bus counts as "not yet";
    the last one is named if the wait runs out."""
    end = time.monotonic() + seconds
    laatste = None
    while time.monotonic() < end:
        try:
            value = check()
        except Exception as e:  # pyatspi raises its own and GLib's errors for a gone object
            laatste, value = e, None
        if value:
            return value
        time.sleep(0.1)
    raise TimeoutError("waited %ds for %s%s" % (seconds, what,
                                                "" if laatste is None else " (last: %s)" % laatste))


class Werkstation:
    def __init__(self, build, cmake, source):
        for tool in TOOLS:
            if not shutil.which(tool):
                raise Missing("%s is not installed (Debian: xvfb openbox dbus x11-utils)" % tool)
        if not os.access(LAUNCHER, os.X_OK):
            raise Missing("%s is missing (Debian: at-spi2-core)" % LAUNCHER)
        self.build, self.cmake, self.source = build, cmake, source
        self.dir = tempfile.mkdtemp(prefix="tk-atspi-")
        self.processes = []
        self.bus_ready = False
        self.env = dict(os.environ)
        self.log = os.path.join(self.dir, "log")
        os.makedirs(self.log)

    def spawn(self, name, args, **kw):
        out = open(os.path.join(self.log, name + ".txt"), "wb")
        p = subprocess.Popen(args, stdout=out, stderr=subprocess.STDOUT, env=self.env,
                             start_new_session=True, **kw)
        self.processes.append(p)
        return p

    def output(self, name):
        try:
            with open(os.path.join(self.log, name + ".txt"), "rb") as f:
                return f.read().decode("utf-8", "replace")
        except OSError:
            return ""

    def start(self):
        map_ = os.path.join(self.dir, "map")
        subprocess.run([self.cmake, "--install", self.build, "--prefix", map_], check=True,
                       stdout=subprocess.DEVNULL)
        subprocess.run(["bash", os.path.join(self.source, "scripts/werkplek.sh"), map_], check=True)
        # The server on a port of its own, named in the workstation's settings.
        port = free_port()
        with open(os.path.join(map_, "Data/Instellingen.ini"), "wb") as f:
            f.write(b"[Algemeen]\r\nGeactiveerd=JA\r\n[Instellingen]\r\nServerlocatie=localhost:%d\r\n"
                    % port)
        self.spawn("server", [os.path.join(map_, "tafelkrater-server"), "--data",
                              os.path.join(self.dir, "server"), "--port", str(port), "--demo"])
        wait_until(lambda: "listening" in self.output("server") or self._connectable(port), 30,
                   "the server on port %d" % port)

        # A private session bus and accessibility bus.
        runtime = os.path.join(self.dir, "run")
        os.makedirs(runtime, mode=0o700)
        self.env["XDG_RUNTIME_DIR"] = runtime
        bus = "unix:path=" + os.path.join(runtime, "bus")
        self.env["DBUS_SESSION_BUS_ADDRESS"] = bus
        self.spawn("dbus", ["dbus-daemon", "--session", "--nofork", "--address=" + bus])
        wait_until(lambda: os.path.exists(os.path.join(runtime, "bus")), 10, "the session bus")

        # Xvfb picks a free display itself and writes its number to a pipe.
        lees, schrijf = os.pipe()
        self.spawn("xvfb", ["Xvfb", "-displayfd", str(schrijf), "-screen", "0", "1024x768x24",
                            "-nolisten", "tcp"], pass_fds=(schrijf,))
        os.close(schrijf)
        with os.fdopen(lees) as f:
            nummer = f.readline().strip()
        if not nummer:
            raise RuntimeError("Xvfb did not start:\n" + self.output("xvfb"))
        self.env["DISPLAY"] = ":" + nummer
        self.spawn("openbox", ["openbox"])
        wait_until(lambda: b"window id" in subprocess.run(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=self.env,
            capture_output=True).stdout, 60, "openbox")
        self.spawn("atspi", [LAUNCHER, "--launch-immediately"])
        wait_until(lambda: subprocess.run(
            ["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus",
             "org.a11y.Bus.GetAddress"], env=self.env, capture_output=True).returncode == 0,
            30, "the accessibility bus")
        self.bus_ready = True
        # pyatspi finds the accessibility bus through the session bus of this environment.
        os.environ.update({k: self.env[k] for k in
                           ("DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "DISPLAY")})

        self.env.update({"USERNAME": "TAFELKRATER", "QT_QPA_PLATFORM": "xcb",
                         "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_ACCESSIBILITY": "1"})
        self.spawn("client", [os.path.join(map_, "tafelkrater-startup"),
                              os.path.join(map_, "tafelkrater")])

    @staticmethod
    def _connectable(port):
        try:
            with socket.create_connection(("127.0.0.1", port), timeout=0.2):
                return True
        except OSError:
            return False

    def stop(self):
        for p in reversed(self.processes):
            if p.poll() is None:
                try:
                    os.killpg(p.pid, signal.SIGTERM)
                except ProcessLookupError:
                    pass
        for p in reversed(self.processes):
            try:
                p.wait(5)
            except subprocess.TimeoutExpired:
                os.killpg(p.pid, signal.SIGKILL)
                p.wait()
        shutil.rmtree(self.dir, ignore_errors=True)


# --- the accessible tree -------------------------------------------------------------------

def application(pyatspi, name="tafelkrater"):
    desktop = pyatspi.Registry.getDesktop(0)
    for i in range(desktop.childCount):
        app = desktop.getChildAtIndex(i)
        if app is not None and app.name == name:
            return app
    return None


def walk(node, depth=0, limit=12):
    """Every object below node with its depth, depth first."""
    if node is None or depth > limit:
        return
    for i in range(node.childCount):
        try:
            child = node.getChildAtIndex(i)
        except Exception:
            continue
        if child is None:
            continue
        yield child, depth
        yield from walk(child, depth + 1, limit)


def showing(pyatspi, node):
    states = node.getState()
    return states.contains(pyatspi.STATE_SHOWING) or states.contains(pyatspi.STATE_VISIBLE)


def find(pyatspi, root, role, name):
    for node, _ in walk(root):
        if node.getRole() == role and node.name == name and showing(pyatspi, node):
            return node
    return None


def tree_text(root):
    lines = []
    for node, depth in walk(root):
        lines.append("%s%s %r" % ("  " * depth, node.getRoleName(), node.name))
    return "\n".join(lines)


def press(node):
    action = node.queryAction()
    for i in range(action.nActions):
        if action.getName(i).lower() in ("press", "click"):
            return action.doAction(i)
    raise AssertionError("%s %r has no press action" % (node.getRoleName(), node.name))


def find_and_press(pyatspi, root, role, name, seconds):
    """Finds the control and presses it; a control that went away in between is looked up
    again. Gives the pressed node."""
    def poging():
        node = find(pyatspi, root, role, name)
        if node is not None:
            press(node)
        return node
    return wait_until(poging, seconds, "%r to press" % name)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", required=True)
    parser.add_argument("--cmake", default="cmake")
    parser.add_argument("--source", required=True)
    parser.add_argument("--class-name", default="Groep 1")
    parser.add_argument("--program", default="Klok")
    parser.add_argument("--task", default="xclock")
    args = parser.parse_args()

    try:
        station = Werkstation(args.build, args.cmake, args.source)
    except Missing as reason:
        print("atspi: cannot run: %s" % reason)
        return 1
    try:
        station.start()
        try:
            import pyatspi
        except ImportError as e:
            print("atspi: cannot run: python3-pyatspi is missing (%s)" % e)
            return 1
        app = wait_until(lambda: application(pyatspi), 60, "the client on the accessibility bus")
        wait_until(lambda: find(pyatspi, app, pyatspi.ROLE_PUSH_BUTTON, args.class_name), 90,
                   "the button of %r" % args.class_name)
        print("atspi: the start screen's accessible tree:")
        print(wait_until(lambda: tree_text(app), 30, "a whole walk of the start screen"))
        find_and_press(pyatspi, app, pyatspi.ROLE_PUSH_BUTTON, args.class_name, 30)
        print("atspi: pressed %r" % args.class_name)
        find_and_press(pyatspi, app, pyatspi.ROLE_LIST_ITEM, args.program, 60)
        print("atspi: the desktop shows %r and it is pressed" % args.program)
        wait_until(lambda: find(pyatspi, app, pyatspi.ROLE_PUSH_BUTTON, args.task), 60,
                   "the task button %r" % args.task)
        print("atspi: the taskbar shows the task %r" % args.task)
        print("1 passed, 0 failed")
        return 0
    except Exception as e:  # the reason, the tree and the logs: what a failing run needs
        print("atspi: FAILED: %s" % e)
        # Without the accessibility bus pyatspi would abort the process: only with it.
        if station.bus_ready:
            try:
                import pyatspi
                app = application(pyatspi)
                if app is not None:
                    print(tree_text(app))
            except Exception:
                pass
        for name in ("client", "server", "atspi"):
            print("--- %s ---\n%s" % (name, station.output(name)[-4000:]))
        return 1
    finally:
        station.stop()


if __name__ == "__main__":
    sys.exit(main())
