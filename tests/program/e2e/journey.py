#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A journey through the installed Debian package as a screen reader drives it, on a private X server and
accessibility bus: every control is found by its role and accessible name through AT-SPI, never by its
place on the screen (what this script cannot find, a blind user cannot find either).
Usage: dbus-run-session -- journey.py FOLDER   (the folder that holds tolvane_*.deb)"""
import contextlib
import glob
import hashlib
import os
import signal
import subprocess
import sys
import tempfile
import time


def wait_for(what, probe, timeout=20):
    for _ in range(timeout * 5):
        with contextlib.suppress(Exception):  # the tree changes under us while windows come and go
            if found := probe():
                return found
        time.sleep(0.2)
    sys.exit("FAIL: timed out waiting for " + what)


world = tempfile.mkdtemp(prefix="tolvane-journey-")
subprocess.check_call(["dpkg", "-x", glob.glob(os.path.join(sys.argv[1], "tolvane_*.deb"))[0], world + "/root"])
# -noreset: else the server starts over whenever its last client leaves, turning away one that comes.
xvfb = subprocess.Popen(["Xvfb", "-displayfd", "1", "-noreset", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
                        stdout=subprocess.PIPE)
os.environ["DISPLAY"] = ":" + xvfb.stdout.readline().decode().strip()
# In a process group of its own, so that its bus daemon and registry go with it at the end.
bus = subprocess.Popen(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"], start_new_session=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
time.sleep(0.5)
env = {k: v for k, v in os.environ.items() if k not in ("QT_QPA_PLATFORM", "TOLVANE_PROGRAM_DIR", "TOLVANE_MSGBOX_LOG")}
for name in ("APPDATA", "REGISTRY", "REGISTRY_MACHINE", "RUNTIME_DIR", "DRIVE_C"):
    env["TOLVANE_" + name] = os.path.join(world, name.lower())
    os.makedirs(env["TOLVANE_" + name])
env.update(TOLVANE_MEDIA="", TOLVANE_SERVER_ADDRESS="http://127.0.0.1:9", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
           LANGUAGE="en_GB:en")  # the first start takes its language from the desktop's
started = []
TEXT = ("text", "password text")  # a text box, whether it hides what is typed or not
ENTRIES = (("Bank", "ann", "b4nk-pass"), ("Mail", "ann@example", "m41l-pass"), ("Shop", "bob", "sh0p-pass"))
PASSWORDS = {title: password for title, _, password in ENTRIES}

import pyatspi  # noqa: E402  (it connects to the bus named in the environment)


def application():
    return next(app for app in pyatspi.Registry.getDesktop(0) if app is not None and app.name == "Tolvane")


def nodes(node, depth=12):
    for child in (node.getChildAtIndex(i) for i in range(node.childCount if depth > 0 else 0)):
        if child is not None:
            yield child
            yield from nodes(child, depth - 1)


def find(node, roles, name):
    """The first node of these roles and this name (less a caption's colon) on screen or in a closed menu."""
    return next(n for n in nodes(node) if n.getRoleName() in roles and n.name.rstrip(":") == name
                and (n.getRoleName() == "menu item" or n.getState().contains(pyatspi.STATE_SHOWING)))


def window(title, has=None):
    """The newest visible top-level window of the program with this title (and this control)."""
    return wait_for("window '%s'" % title, lambda: [w for w in application() if w is not None and w.name == title
                    and w.getState().contains(pyatspi.STATE_VISIBLE) and (has is None or find(w, *has))][-1])


def control(parent, roles, name):
    roles = (roles,) if isinstance(roles, str) else roles
    return wait_for("%s '%s'" % (roles[0], name), lambda: find(parent, roles, name))


def press(node):
    """The node's press, click or activate action (a command that ends the program answers no more)."""
    actions = node.queryAction()
    offered = [actions.getName(i).lower() for i in range(actions.nActions)]
    which = [i for i, offer in enumerate(offered) if offer in ("press", "click", "activate")] or sys.exit(
        "FAIL: %s '%s' offers only %s" % (node.getRoleName(), node.name, offered))
    with contextlib.suppress(Exception):
        actions.doAction(which[0])


def type_into(parent, name, text):
    """Into the box as a keyboard user gets there: the focus first, then the text."""
    control(parent, TEXT, name).queryComponent().grabFocus()
    control(parent, TEXT, name).queryEditableText().setTextContents(text)
    time.sleep(0.1)


def answer_message(expected):
    """A message box: read out (its text must hold `expected`) and closed with its OK button."""
    message = window("Tolvane", (("push button",), "OK"))
    said = " ".join(n.name.replace("\n", " ") for n in nodes(message, 6) if n.getRoleName() == "label")
    if expected not in said:
        sys.exit("FAIL: the message box says '%s', not '%s'" % (said, expected))
    press(find(message, ("push button",), "OK"))
    wait_for("the message box to close", lambda: message not in list(application())
             or not message.getState().contains(pyatspi.STATE_SHOWING))


def rows(vault, expected, name="List of passwords"):
    entries = control(vault, "list", name)
    wait_for("the rows %s in '%s'" % (expected, name),
             lambda: [entries.getChildAtIndex(i).name for i in range(entries.childCount)] == expected)


def start():
    started.append(subprocess.Popen([world + "/root/usr/bin/tolvane"], env=env))
    wait_for("the program on the accessibility bus", application)


def close(vault):
    print("-- File > Close saves the vault and ends the run")
    press(control(vault, "menu item", "Close"))
    if started[-1].wait(20) != 0:
        sys.exit("FAIL: the program ended with %d" % started[-1].returncode)


def clipboard():
    return subprocess.run(["xclip", "-o", "-selection", "clipboard"], capture_output=True, text=True).stdout


def copy_password(vault, keys, title):
    """A row chosen by the keyboard from the search box; its password copied by its picture, read by another program."""
    # xdotool plays the window manager and types: the bus's key injector has no display here.
    control(vault, TEXT, "Search").queryComponent().grabFocus()
    subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Tolvane - Administrator$", "windowfocus",
                    "--sync", "sleep", "0.3", "key", "--delay", "300"] + keys)
    wait_for(title + " on show", lambda: control(vault, TEXT, "Title").queryText().getText(0, -1) == title)
    press(control(vault, "push button", "Copy - Password"))
    wait_for("the password on the X clipboard", lambda: clipboard() == PASSWORDS[title])
    check_marked_secret("the copy")


def check_marked_secret(what):
    """The mark that keeps a text out of a clipboard manager's history, as another program reads the targets."""
    targets = subprocess.run(["xclip", "-o", "-selection", "clipboard", "-t", "TARGETS"], capture_output=True,
                             text=True).stdout.split()
    if "x-kde-passwordManagerHint" not in targets:
        sys.exit("FAIL: %s is not marked secret: %s" % (what, targets))


def keepers():
    """The clipboard keepers of the installed program still running (not those of other sessions)."""
    found = []
    for pid in filter(str.isdigit, os.listdir("/proc")):
        with contextlib.suppress(OSError):
            if os.readlink("/proc/%s/exe" % pid) == world + "/root/usr/lib/tolvane/tolvane-clipboard-keeper":
                found.append(pid)
    return found


def data(name):
    with open(os.path.join(world, "appdata/Brenmark/Tolvane/data", name), "rb") as f:
        return f.read()


try:
    print("-- a fresh start: the language of the desktop, no message, the vault")
    start()
    vault = window("Tolvane - Administrator")
    if any(w.name == "Tolvane" and w.getState().contains(pyatspi.STATE_SHOWING) for w in application()):
        sys.exit("FAIL: the first start shows a message")
    if data("users.txt") != b"Administrator\r\n" or b"s5=1" not in data("Administrator/cfg.txt"):
        sys.exit("FAIL: the first start's tree: %r" % data("users.txt"))

    print("-- three entries through the toolbar's first button and the new-entry dialog")
    for entry in ENTRIES:
        press(control(vault, "push button", "New entry"))
        dialog = window("Add a new password...")
        for caption, text in zip(("Title", "User name", "Password"), entry):
            type_into(dialog, caption, text)
        control(dialog, TEXT, "Title").queryComponent().grabFocus()  # leaving the last box keeps it
        press(control(dialog, "push button", "Save"))
        answer_message("The entry has been saved.")
    rows(vault, ["Bank", "Mail", "Shop"])

    print("-- a search by the box and button named Search; the list is read as its results")
    type_into(vault, "Search", "ann")
    press(control(vault, "push button", "Search"))
    rows(vault, ["Bank (ann)", "Mail (ann@example)"], "Search results")

    print("-- the match chosen by the keyboard (Tab, Tab to the list, Down, Down), its password copied")
    copy_password(vault, ["Tab", "Tab", "Down", "Down"], "Mail")

    print("-- options applied by the settings window's OK, which loads the vault window again")
    press(control(vault, "menu item", "Settings..."))
    settings = window("Ustawienia...")
    press(control(settings, "page tab", "Users"))  # the pages turn for assistive tools too
    control(settings, "push button", "Change password")
    press(control(settings, "push button", "OK"))
    vault = window("Tolvane - Administrator")
    rows(vault, ["Bank", "Mail", "Shop"])
    close(vault)
    # A first start's options empty the clipboard at the end of the run; the end stamps the profile's time.
    if clipboard() != "" or b"time=" not in data("Administrator/time.txt"):
        sys.exit("FAIL: after the run the clipboard holds '%s'" % clipboard())
    for line in (b"current=Administrator", b"temp_changeable2=Administrator", b"switch=\r\n"):
        if line not in data("config.txt"):
            sys.exit("FAIL: config.txt lacks %r" % line)

    print("-- a password, as a profile carried over from the original has it; a second start asks for it")
    # The program cannot give a first password (a profile without one can never change it), so
    # the digest is written into the profile's file as the original leaves it.
    digest = "".join("0" + format(b, "X") if b < 16 else format(b, "02x") for b in hashlib.md5(b"s3cret").digest())
    with open(os.path.join(world, "appdata/Brenmark/Tolvane/data/Administrator/settings.txt"), "wb") as f:
        f.write(b"[settings]\r\npassword=" + digest.encode() + b"\r\n")
    # With the option off, what was copied stays for other programs after the run.
    with open(os.path.join(world, "appdata/Brenmark/Tolvane/data/Administrator/cfg.txt"), "r+b") as f:
        options = f.read().replace(b"s3=1", b"s3=0")
        f.seek(0)
        f.write(options)
    began = time.monotonic()
    start()
    # The splash bears the same title: the login is the window with the password box.
    login = window("Tolvane", (TEXT, "Password"))
    if time.monotonic() - began < 2.9:
        sys.exit("FAIL: the splash stood for less than its three ticks of a second")
    type_into(login, "Password", "s3cret")
    press(control(login, "push button", "Log in"))
    vault = window("Tolvane - Administrator")
    rows(vault, ["Bank", "Mail", "Shop"])
    copy_password(vault, ["Tab", "Down"], "Mail")
    close(vault)
    wait_for("the password handed over at the end of the run", lambda: clipboard() == "m41l-pass", 5)
    check_marked_secret("the text handed over at the end of the run")

    print("-- the tool copies a password for two seconds, after the login's password, then clears it")
    tool = subprocess.Popen([world + "/root/usr/bin/tolvane-vault", "clip", "Shop", "--seconds", "2"], env=env,
                            stdin=subprocess.PIPE, stderr=subprocess.PIPE)
    tool.stdin.write(b"s3cret\n")
    tool.stdin.close()
    wait_for("the tool's copy on the X clipboard", lambda: clipboard() == "sh0p-pass", 5)
    check_marked_secret("the tool's copy, which the keeper holds")
    if tool.wait(10) != 0 or clipboard() != "":
        sys.exit("FAIL: the tool ended with %d, the clipboard holds '%s'" % (tool.returncode, clipboard()))
    wait_for("the keeper gone once another program took the clipboard", lambda: not keepers(), 5)
    print("PASS: the journey by role and name")
finally:
    for process in started:
        process.kill()
    os.killpg(bus.pid, signal.SIGTERM)
    xvfb.terminate()  # not killed: a killed server leaves its socket file behind
    xvfb.wait(10)
