"""A display of its own for a program with a window: Xvfb, real pointer and key events through xdotool."""
import os, pathlib, shutil, subprocess, tempfile, time


class Display:
    def __init__(self, width, height):
        for tool in ("Xvfb", "xdotool"):
            if not shutil.which(tool):
                raise SystemExit(f"{tool} is not installed")
        reader, writer = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp",
             "-noreset"],
            pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as answer:
            self.name = ":" + answer.readline().strip()
        self.environment = dict(os.environ, DISPLAY=self.name)
        self.environment.pop("WAYLAND_DISPLAY", None)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()

    def xdotool(self, *words, text=None):
        done = subprocess.run(["xdotool", *map(str, words)], env=self.environment, input=text, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        return done.stdout.strip()

    def windows(self):
        """Mapped windows with a title as (id, width, height, title), in the order of their ids."""
        found = []
        for window in self.xdotool("search", "--onlyvisible", "--name", ".").split():
            shape = dict(line.split("=") for line in self.xdotool("getwindowgeometry", "--shell", window).split())
            if shape:
                found.append((int(window), int(shape["WIDTH"]), int(shape["HEIGHT"]),
                              self.xdotool("getwindowname", window)))
        return found

    def wait(self, wanted, seconds=20):
        """The first mapped window for which wanted(width, height, title) holds."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            for window, width, height, title in self.windows():
                if wanted(width, height, title):
                    return window
            time.sleep(0.004)
        raise SystemExit("the window did not come; there are: " + ", ".join(w[3] for w in self.windows()))

    def keys(self, window, *names):
        self.xdotool("windowfocus", "--sync", window)
        for name in names:
            self.xdotool("key", "--delay", 20, name)
            time.sleep(0.05)

    def type(self, window, words):
        self.xdotool("windowfocus", "--sync", window)
        self.xdotool("type", "--delay", 20, words)
        time.sleep(0.1)


def fresh_home(settings=None):
    """A work folder as after a first session; settings are lines for its settings file."""
    home = pathlib.Path(tempfile.mkdtemp(prefix="morvandel_"))
    (home / "IntroFile.txt").write_bytes(b"1\r\n")
    (home / "settings.ini").write_text("[Settings]\n" + "".join(f"{k}={v}\n" for k, v in (settings or {}).items()))
    return home
