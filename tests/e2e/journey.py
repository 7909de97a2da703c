#!/usr/bin/python3
"""A journey through the installed program, driven as a screen reader drives it: a fresh
start and its message box, three entries added through the toolbar and the new-entry dialog,
a search, a row chosen with the keyboard, its password copied and read from the X clipboard
by another process (xclip), the options applied by the settings window, the end of the run by
the File menu, and a second start that asks for the profile's password.

The Debian package is unpacked into a temporary root and its program started on a private X
server with a private accessibility bus (run this under dbus-run-session). Every control is
found by its role and accessible name through AT-SPI, never by a position on the screen: if
this script cannot find a control, neither can a blind user. Message boxes are real ones,
read and answered through the bus. Keys go through xdotool to the window found by its title.

Usage: dbus-run-session -- journey.py FOLDER   (the folder that holds tolvane_*.deb)
"""
import glob
import hashlib
import os
import signal
import subprocess
import sys
import tempfile
import time

TIMEOUT = 20


def fail(message):
    print("FAIL: " + message, flush=True)
    sys.exit(1)


def step(message):
    print("-- " + message, flush=True)


def wait_for(what, probe, timeout=TIMEOUT):
    end = time.time() + timeout
    while time.time() < end:
        try:
            found = probe()
        except Exception:  # the tree changes under us while windows come and go
            found = None
        if found:
            return found
        time.sleep(0.2)
    fail("timed out waiting for " + what)


# ---- the world: the package unpacked, an X server, the accessibility bus ----

deb = glob.glob(os.path.join(sys.argv[1], "tolvane_*.deb"))[0]
world = tempfile.mkdtemp(prefix="tolvane-journey-")
root = os.path.join(world, "root")
subprocess.check_call(["dpkg", "-x", deb, root])
program = os.path.join(root, "usr/bin/tolvane")

# -noreset: otherwise the server starts over whenever its last client leaves, and a client that
# comes at that moment is turned away or left waiting.
xvfb = subprocess.Popen(["Xvfb", "-displayfd", "1", "-noreset", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
                        stdout=subprocess.PIPE)
os.environ["DISPLAY"] = ":" + xvfb.stdout.readline().decode().strip()
# In a process group of its own, so that its bus daemon and registry go with it at the end.
bus = subprocess.Popen(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"], start_new_session=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
time.sleep(0.5)

env = dict(os.environ)
for name in ("appdata", "registry", "machine", "run", "home"):
    os.makedirs(os.path.join(world, name))
env.update({
    "TOLVANE_APPDATA": os.path.join(world, "appdata"),
    "TOLVANE_REGISTRY": os.path.join(world, "registry"),
    "TOLVANE_REGISTRY_MACHINE": os.path.join(world, "machine"),
    "TOLVANE_RUNTIME_DIR": os.path.join(world, "run"),
    "TOLVANE_DRIVE_C": os.path.join(world, "home"),
    "TOLVANE_MEDIA": "",
    "TOLVANE_SERVER_ADDRESS": "http://127.0.0.1:9",
    "QT_ACCESSIBILITY": "1",
    "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
})
for name in ("QT_QPA_PLATFORM", "TOLVANE_PROGRAM_DIR", "TOLVANE_MSGBOX_LOG", "TOLVANE_MSGBOX_ANSWERS"):
    env.pop(name, None)

import pyatspi  # noqa: E402  (it connects to the bus named in the environment)


# ---- finding and using controls by role and name ----

def application():
    for app in pyatspi.Registry.getDesktop(0):
        if app is not None and app.name == "Tolvane":
            return app
    return None


def find(node, roles, name=None, depth=12):
    """The first node below `node` with one of these roles and this name (None: any name; a
    caption's colon, which Qt keeps in a name it takes from a caption, does not count), showing
    on the screen; menu items count in a menu that is not open."""
    if node is None or depth < 0:
        return None
    roles = (roles,) if isinstance(roles, str) else roles
    for i in range(node.childCount):
        child = node.getChildAtIndex(i)
        if child is None:
            continue
        if child.getRoleName() in roles and (name is None or child.name.rstrip(":") == name) \
                and (child.getRoleName() == "menu item" or child.getState().contains(pyatspi.STATE_SHOWING)):
            return child
        below = find(child, roles, name, depth - 1)
        if below is not None:
            return below
    return None


def window(name):
    """The newest top-level window of the program with this title (shown or minimised)."""
    def newest():
        found = [w for w in application() if w is not None and w.name == name
                 and w.getState().contains(pyatspi.STATE_VISIBLE)]
        return found[-1] if found else None
    return wait_for("window '%s'" % name, newest)


def control(parent, role, name):
    return wait_for("%s '%s'" % (role, name), lambda: find(parent, role, name))


def box(parent, name):
    """A text box by its caption, whether it hides what is typed or not."""
    return control(parent, ("text", "password text"), name)


def act(node, *names):
    """Runs the first of the named actions the node offers (press, click, ...)."""
    actions = node.queryAction()
    offered = [actions.getName(i) for i in range(actions.nActions)]
    for i, offer in enumerate(offered):
        if offer.lower() in names:
            try:
                actions.doAction(i)
            except Exception as error:  # a command that ends the program answers no more
                print("   (no answer to %s: %s)" % (offer, str(error).split(":")[0]), flush=True)
            return
    fail("%s '%s' offers %s, none of %s" % (node.getRoleName(), node.name, offered, names))


def press(node):
    act(node, "press", "click", "activate")


def type_into(box, text):
    """Into the box as a keyboard user gets there: the focus first, then the text."""
    box.queryComponent().grabFocus()
    box.queryEditableText().setTextContents(text)
    time.sleep(0.1)


def text_of(node):
    t = node.queryText()
    return t.getText(0, t.characterCount)


def answer_message(expected):
    """A message box: read out (its text must hold `expected`) and closed with its button."""
    box = wait_for("a message box saying '%s'" % expected,
                   lambda: next((w for w in application() if w is not None
                                 and w.getRoleName() in ("alert", "dialog") and w.name == "Tolvane"
                                 and w.getState().contains(pyatspi.STATE_SHOWING)
                                 and find(w, "label", None) is not None), None))
    said = " ".join(find_all_text(box))
    if expected not in said:
        fail("the message box says '%s', not '%s'" % (said, expected))
    for name in ("OK", "&OK", "Yes", "&Yes"):
        button = find(box, "push button", name)
        if button is not None:
            press(button)
            wait_for("the message box to close", lambda: not box.getState().contains(pyatspi.STATE_SHOWING)
                     or box not in list(application()))
            return
    fail("the message box has no OK or Yes button")


def find_all_text(node, depth=6):
    found = []
    if node is None or depth < 0:
        return found
    for i in range(node.childCount):
        child = node.getChildAtIndex(i)
        if child is None:
            continue
        if child.getRoleName() == "label" and child.name:
            found.append(child.name.replace("\n", " "))
        found.extend(find_all_text(child, depth - 1))
    return found


def clipboard():
    return subprocess.run(["xclip", "-o", "-selection", "clipboard"], capture_output=True, text=True).stdout


def start():
    process = subprocess.Popen([program], env=env)
    wait_for("the program on the accessibility bus", application)
    return process


# ---- the journey ----

try:
    step("the X server takes a client")
    wait_for("the X server on " + os.environ["DISPLAY"],
             lambda: subprocess.call(["xdotool", "getdisplaygeometry"], stdout=subprocess.DEVNULL,
                                     stderr=subprocess.DEVNULL, timeout=5) == 0, 10)

    step("a fresh start: one message before any language is chosen, then the vault")
    first = start()
    answer_message("Failed loading selected language")
    vault = window("Tolvane - Administrator")

    step("three entries through the toolbar's first button and the new-entry dialog")
    for title, name, password in (("Bank", "ann", "b4nk-pass"), ("Mail", "ann@example", "m41l-pass"),
                                  ("Shop", "bob", "sh0p-pass")):
        press(control(vault, "push button", "New entry"))
        dialog = window("Add a new password...")
        type_into(box(dialog, "Title"), title)
        type_into(box(dialog, "User name"), name)
        type_into(box(dialog, "Password"), password)
        box(dialog, "Title").queryComponent().grabFocus()  # leaving the last box keeps it
        press(control(dialog, "push button", "Save"))
        answer_message("The entry has been saved.")
    entries = control(vault, "list", "List of passwords")
    rows = wait_for("three rows", lambda: [entries.getChildAtIndex(i).name for i in range(entries.childCount)]
                    if entries.childCount == 3 else None)
    if rows != ["Bank", "Mail", "Shop"]:
        fail("the list shows %s" % rows)

    step("a search by the box and button named Search")
    type_into(box(vault, "Search"), "ann")
    press(control(vault, "push button", "Search"))
    wait_for("two result rows", lambda: entries.childCount == 2 and entries.getChildAtIndex(1).name.startswith("Mail ("))
    wait_for("the list read as the search's results", lambda: entries.name == "Search results")

    step("the row of the match chosen with the keyboard: from the search box Tab past the button back to the"
         " whole list, into the list, Down")
    # The keyboard goes to the active window: the window manager's part, which xdotool plays
    # here (by the window's title, not its place), as it types the keys (the registry daemon
    # that would inject them has no display in a private session bus).
    subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Tolvane - Administrator$", "windowfocus",
                    "--sync"])
    box(vault, "Search").queryComponent().grabFocus()
    for key in ("Tab", "Tab", "Down", "Down"):
        subprocess.run(["xdotool", "key", key])
        time.sleep(0.3)
    wait_for("the entry on show", lambda: text_of(box(vault, "Title")) == "Mail")

    step("the password copied by the picture beside its box, read by another program")
    press(control(vault, "push button", "Copy - Password"))
    wait_for("the password on the X clipboard", lambda: clipboard() == "m41l-pass")

    step("options applied by the settings window's OK, which loads the vault window again")
    press(control(vault, "menu item", "Settings..."))
    settings = window("Ustawienia...")
    press(control(settings, "page tab", "Users"))  # the pages turn for assistive tools too
    control(settings, "push button", "Change password")
    press(control(settings, "push button", "OK"))
    vault = window("Tolvane - Administrator")
    entries = control(vault, "list", "List of passwords")
    wait_for("the full list again", lambda: entries.childCount == 3)

    step("File > Close saves the vault and ends the run")
    press(control(vault, "menu item", "Close"))
    if first.wait(TIMEOUT) != 0:
        fail("the program ended with %d" % first.returncode)

    step("a password, as a profile carried over from the original has it; a second start asks for it")
    # The program cannot give a first password (a profile without one can never change it),
    # so the digest is written into the profile's file as the original leaves it.
    settings_file = os.path.join(world, "appdata/Brenmark/Tolvane/data/Administrator/settings.txt")
    digest = "".join("0" + format(b, "X") if b < 16 else format(b, "02x") for b in hashlib.md5(b"s3cret").digest())
    with open(settings_file, "wb") as f:
        f.write(b"[settings]\r\npassword=" + digest.encode() + b"\r\n")
    second = start()
    # The splash bears the same title: the login is the window with the password box.
    login = wait_for("the login window", lambda: next((w for w in application() if w is not None and w.name == "Tolvane"
                                                       and find(w, ("text", "password text"), "Password")), None))
    type_into(box(login, "Password"), "s3cret")
    press(control(login, "push button", "Log in"))
    vault = window("Tolvane - Administrator")
    entries = control(vault, "list", "List of passwords")
    rows = wait_for("three rows", lambda: [entries.getChildAtIndex(i).name for i in range(entries.childCount)]
                    if entries.childCount == 3 else None)
    if rows != ["Bank", "Mail", "Shop"]:
        fail("the list shows %s after the restart" % rows)
    press(control(vault, "menu item", "Close"))
    if second.wait(TIMEOUT) != 0:
        fail("the second run ended with %d" % second.returncode)
    print("PASS: the journey by role and name", flush=True)
finally:
    for process in ("first", "second"):
        if process in globals() and globals()[process].poll() is None:
            globals()[process].kill()
    os.killpg(bus.pid, signal.SIGTERM)
    xvfb.terminate()  # not killed: a killed server leaves its socket file behind
    xvfb.wait(10)
