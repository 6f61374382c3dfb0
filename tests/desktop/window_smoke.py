#!/usr/bin/env python3
"""window_smoke.py PROGRAM SOURCES SCREENSHOT

Opens the sample in the built program by keyboard alone, reads its calls, writes a report, takes a screenshot, ends it.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

PATIENCE = 60  # seconds for any step


def wait_for(what, condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.1)
    sys.exit(f"waited in vain for {what}")


class Screen:
    """A screen in memory with a window manager."""

    def __enter__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x900x24", "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as numbers:
            self.environment = dict(os.environ, DISPLAY=":" + numbers.readline().strip())
        self.manager = subprocess.Popen(["openbox"], env=self.environment, stderr=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()

    def tool(self, *arguments):
        return subprocess.run(["xdotool", *arguments], env=self.environment, capture_output=True, text=True).stdout

    def title(self):
        return self.tool("getactivewindow", "getwindowname").strip()

    def settle(self):
        """Waits until the screen stays as it is."""
        pictures = [b""]

        def is_still():
            pictures.append(subprocess.run(["import", "-window", "root", "rgb:-"], env=self.environment,
                                           capture_output=True, check=True).stdout)
            return pictures[-1] == pictures.pop(0)

        wait_for("a still screen", is_still)

    def keys(self, *keys):
        self.settle()
        self.tool("key", "--delay", "60", *keys)

    def colours(self, path):
        self.settle()
        subprocess.run(["import", "-window", "root", str(path)], env=self.environment, check=True)
        found = subprocess.run(["identify", "-format", "%k", str(path)], capture_output=True, text=True, check=True)
        return int(found.stdout)


def main():
    built, source, screenshot = map(pathlib.Path, sys.argv[1:])

    with tempfile.TemporaryDirectory() as directory, Screen() as screen:
        home = pathlib.Path(directory)
        # Beside its own copy of the program, so that the settings of nobody else are read or written.
        shutil.copy(built, home)
        shutil.copytree(source / "Languages", home / "Languages")
        shutil.copytree(source / "samples", home / "samples")
        environment = dict(screen.environment, HOME=directory, XDG_CONFIG_HOME=directory, XDG_RUNTIME_DIR=directory,
                           ASAN_OPTIONS="detect_leaks=0")  # fonts and themes of the system are never given back
        environment.pop("QT_QPA_PLATFORM", None)  # a real screen, whatever the other tests run on
        program = subprocess.Popen([home / built.name], env=environment)
        try:
            wait_for("the window", lambda: "Ostrivane" in screen.title())
            screen.keys("ctrl+o")
            wait_for("the file dialog", lambda: "Open project" in screen.title())
            screen.settle()
            screen.tool("type", "--delay", "20", str(home / "samples/ToolHire/ToolHire.vbp"))
            screen.keys("Return")
            wait_for("the project", lambda: screen.title().startswith("ToolHire:"))
            screen.keys("alt+d", "Return")  # read all calls
            wait_for("the question", lambda: screen.title() == "Ostrivane")
            screen.keys("alt+y")
            wait_for("the calls", lambda: screen.title().startswith("ToolHire:"))
            screen.keys("Down", "Down", "Right")
            if screen.colours(screenshot) < 50:
                sys.exit("the window is nearly empty")
            screen.keys("alt+f", "Up", "Up", "Right", "c")  # the reports stand above the end of the menu
            wait_for("the question about the reports", lambda: screen.title() == "Calls reports")
            screen.keys("alt+w")
            report = home / "samples/ToolHire/modMain.bas Calls.txt"
            wait_for("a calls report", lambda: report.exists() and b"modStore" in report.read_bytes())
            screen.keys("ctrl+q")
            wait_for("the end", lambda: program.poll() is not None)
            if program.returncode != 0:
                sys.exit(f"ended with {program.returncode}")
            settings = (home / "Ostrivane.ini").read_bytes()
            if b"ToolHire" not in settings or b"SplitX_Content=" not in settings:
                sys.exit("the settings were not stored")
            if b"Version" not in (home / "Ostrivane.registry").read_bytes():
                sys.exit("the version was not recorded")
        finally:
            program.kill()


if __name__ == "__main__":
    main()
