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
import random
import re
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


def first_ephemeral_port():
    """The lowest port the system hands out for port 0."""
    try:
        with open("/proc/sys/net/ipv4/ip_local_port_range") as f:
            low = int(f.read().split()[0])
    except (OSError, ValueError, IndexError):
        low = 0
    return low if low > 2048 else 32768


def reserve_ports(count, folder):
    """Ports for what must be named before anything listens on them (the client's transfer
    ports, which the server is told at its start), taken as the C++ tests take theirs: below the
    range the system hands out for port 0, each held by a lock file in the same folder for as long
    as the lock files in `held` live, so that tests running at the same time never share one."""
    high = first_ephemeral_port()
    low = high - 10000
    os.makedirs(folder, exist_ok=True)
    ports, held = [], []
    port = low + random.randrange(high - low)
    for _ in range(high - low):
        if len(ports) == count:
            break
        port = port + 1 if port + 1 < high else low
        lock = os.path.join(folder, "%d.lock" % port)
        if not take_lock(lock):
            continue
        with socket.socket() as probe:
            probe.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
            try:
                probe.bind(("0.0.0.0", port))
            except OSError:
                os.unlink(lock)
                continue
        ports.append(port)
        held.append(lock)
    return ports, held


def take_lock(path):
    """Makes the lock file in the form the C++ tests' lock files have (process id first, no
    program name, so that only a dead process makes it stale); a stale one is taken over."""
    for _ in range(2):
        try:
            fd = os.open(path, os.O_CREAT | os.O_EXCL | os.O_WRONLY, 0o644)
        except FileExistsError:
            try:
                with open(path) as f:
                    pid = int(f.readline().strip() or "0")
                os.kill(pid, 0)
                return False  # held by a live process
            except ProcessLookupError:
                try:
                    os.unlink(path)
                except FileNotFoundError:
                    pass
                continue
            except (OSError, ValueError):
                return False
        with os.fdopen(fd, "w") as f:
            f.write("%d\n\n%s\n" % (os.getpid(), socket.gethostname()))
        return True
    return False


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
        # The server takes free ports of the system for itself and names them in its log; the
        # client's transfer ports are named to it first. Its port then goes into the
        # workstation's settings.
        client_ports, self.locks = reserve_ports(
            2, os.path.join(tempfile.gettempdir(), "tafelkrater-test-ports"))
        if len(client_ports) < 2:
            raise RuntimeError("no free ports for the client's transfers")
        self.spawn("server", [os.path.join(map_, "tafelkrater-server"), "--data",
                              os.path.join(self.dir, "server"), "--port", "0",
                              "--client-data-port", str(client_ports[0]),
                              "--client-info-port", str(client_ports[1]), "--demo"])
        port = int(wait_until(lambda: re.search(r"listening on port (\d+)",
                                                self.output("server")), 30,
                              "the server to listen").group(1))
        with open(os.path.join(map_, "Data/Instellingen.ini"), "wb") as f:
            f.write(b"[Algemeen]\r\nGeactiveerd=JA\r\n[Instellingen]\r\nServerlocatie=localhost:%d\r\n"
                    % port)

        # A private session bus and accessibility bus.
        runtime = os.path.join(self.dir, "run")
        os.makedirs(runtime, mode=0o700)
        self.env["XDG_RUNTIME_DIR"] = runtime
        bus = "unix:path=" + os.path.join(runtime, "bus")
        self.env["DBUS_SESSION_BUS_ADDRESS"] = bus
        self.spawn("dbus", ["dbus-daemon", "--session", "--nofork", "--address=" + bus])
        wait_until(lambda: os.path.exists(os.path.join(runtime, "bus")), 10, "the session bus")

        self._start_x()
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

    def _start_x(self):
        """Xvfb picks a free display itself and writes its number to a pipe. When several X
        servers start at once, one may name a display that then cannot be opened (its log says
        "server already running" for a display another took meanwhile): the manager fails to
        open it, and the pair is started again, a few times at the most."""
        for attempt in range(3):
            lees, schrijf = os.pipe()
            xvfb = self.spawn("xvfb", ["Xvfb", "-displayfd", str(schrijf), "-screen", "0",
                                       "1024x768x24", "-nolisten", "tcp"], pass_fds=(schrijf,))
            os.close(schrijf)
            with os.fdopen(lees) as f:
                nummer = f.readline().strip()
            if not nummer:
                raise RuntimeError("Xvfb did not start:\n" + self.output("xvfb"))
            self.env["DISPLAY"] = ":" + nummer
            openbox = self.spawn("openbox", ["openbox"])
            if wait_until(lambda: openbox.poll() is not None or b"window id" in subprocess.run(
                    ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=self.env,
                    capture_output=True).stdout, 60, "openbox") and openbox.poll() is None:
                return
            print("atspi: openbox could not open display :%s (attempt %d): %s\n%s"
                  % (nummer, attempt + 1, self.output("openbox").strip(),
                     self.output("xvfb").strip()))
            # Ended as the run's end ends them, so that the server takes its socket and lock
            # file with it and the next one finds the display free.
            for p in (openbox, xvfb):
                self.processes.remove(p)
                if p.poll() is None:
                    os.killpg(p.pid, signal.SIGTERM)
                try:
                    p.wait(5)
                except subprocess.TimeoutExpired:
                    os.killpg(p.pid, signal.SIGKILL)
                    p.wait()
        raise RuntimeError("openbox could not open the display of Xvfb three times:\n"
                           + self.output("xvfb"))

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
        for lock in getattr(self, "locks", []):
            try:
                os.unlink(lock)
            except FileNotFoundError:
                pass
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
        for name in ("client", "server", "atspi", "xvfb", "openbox", "dbus"):
            print("--- %s ---\n%s" % (name, station.output(name)[-4000:]))
        return 1
    finally:
        station.stop()


if __name__ == "__main__":
    sys.exit(main())
