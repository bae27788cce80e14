#!/usr/bin/python3
# A screen reader's view of the main window, through the accessibility bus alone: the value box,
# the unit lists, the quantities and the result are found by their accessible names, driven as
# an assistive technology drives them (text set, list items selected, a quantity pressed), and
# the result read back. The quantities are tabs or buttons (MENSURA_TABS=1 or 0): each must sit
# where it is drawn and say which one is current. Last, keys are pressed on the real keyboard
# (xdotool): Ctrl+Shift+Tab must step back one quantity, and the platform's Quit key (Ctrl+Q)
# must end the program. Run by with_screen_reader_bus.sh; exits non-zero on the first failure.
import os
import subprocess
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

# Debian 12's Atspi marks the per-interface calls used here as deprecated; they are what works.
warnings.simplefilter("ignore", DeprecationWarning)

# value, quantity tab, initial unit, converted unit, the result the window must show
CONVERSIONS = [
    ("12", "Length", "foot (ft)", "inch (in)", "144.000 0"),
    ("100", "Temperature", "Celsius (°C)", "Fahrenheit (°F)", "212.000 0"),
    ("1", "Mass", "pound (avoirdupois) (lb)", "kilogram (kg)", "0.453 592 4"),
]


def fail(message):
    print("FAIL:", message)
    sys.exit(1)


def find(node, role, name=None, depth=0):
    """The first accessible at or below node with this role (and this name, when given)."""
    if node is None or depth > 15:
        return None
    try:
        if node.get_role_name() == role and name in (None, node.get_name()):
            return node
        count = node.get_child_count()
    except gi.repository.GLib.Error:
        return None
    for i in range(count):
        found = find(node.get_child_at_index(i), role, name, depth + 1)
        if found:
            return found
    return None


def wait_for(what, produce, seconds=15, why=None):
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        value = produce()
        if value:
            return value
        time.sleep(0.1)
    fail(why() if why else "timed out waiting for " + what)


def application():
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        app = desktop.get_child_at_index(i)
        if app and app.get_name() == "mensura" and app.get_child_count() > 0:
            return app
    return None


def act(container, role, name, action):
    """Does what a screen reader's command does to the child of that role and name."""
    for i in range(container.get_child_count()):
        child = container.get_child_at_index(i)
        if child.get_role_name() == role and child.get_name() == name:
            for a in range(Atspi.Action.get_n_actions(child)):
                if Atspi.Action.get_action_name(child, a) == action:
                    if not Atspi.Action.do_action(child, a):
                        fail("%s on %r did nothing" % (action, name))
                    return
            fail("%r has no %s action" % (name, action))
    fail("no %s %r in %s %r" % (role, name, container.get_role_name(), container.get_name()))


TABS = os.environ.get("MENSURA_TABS") == "1"
# How the quantities show: their container, each quantity, and the state of the current one.
STRIP, QUANTITY, CURRENT = (("page tab list", "page tab", Atspi.StateType.SELECTED) if TABS
                            else ("panel", "push button", Atspi.StateType.CHECKED))


def extents(node):
    box = Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)
    return (box.x, box.y, box.width, box.height)


def current_quantity(strip):
    """The quantity shown as current, after checking that the quantities showing lie in the
    strip, each in a place of its own."""
    sx, sy, sw, sh = extents(strip)
    places = {}
    current = []
    for i in range(strip.get_child_count()):
        child = strip.get_child_at_index(i)
        if child.get_role_name() != QUANTITY:
            continue
        states = child.get_state_set()
        if states.contains(CURRENT):
            current.append(child.get_name())
        if not states.contains(Atspi.StateType.SHOWING):
            continue
        x, y, w, h = extents(child)
        if not (sx <= x and x + w <= sx + sw and sy <= y and y + h <= sy + sh):
            fail("%r at %r lies outside its strip at %r" % (child.get_name(), (x, y, w, h),
                                                             (sx, sy, sw, sh)))
        if (x, y) in places:
            fail("%r and %r share the place %r" % (places[(x, y)], child.get_name(), (x, y)))
        places[(x, y)] = child.get_name()
    if len(places) < 3:
        fail("only %d quantities show" % len(places))
    return current[0] if len(current) == 1 else None


def text_of(node):
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


def main():
    app = wait_for("the program on the accessibility bus", application)
    frame = wait_for("the main window", lambda: find(app, "frame", "Mensura 98"))
    strip = wait_for("the quantities", lambda: find(frame, STRIP))
    for value, quantity, initial, converted, expected in CONVERSIONS:
        act(strip, QUANTITY, quantity, "Press")
        wait_for("%s to be current" % quantity, lambda: current_quantity(strip) == quantity,
                 why=lambda: "%s pressed, %r current" % (quantity, current_quantity(strip)))
        box = find(frame, "text", "Value to convert")
        if box is None:
            fail("no text named 'Value to convert'")
        Atspi.EditableText.set_text_contents(box, value)
        for list_name, unit in (("Initial unit", initial), ("Target unit", converted)):
            units = find(frame, "list", list_name)
            if units is None:
                fail("no list named %r" % list_name)
            wait_for(unit + " listed", lambda: find(units, "list item", unit))
            act(units, "list item", unit, "Toggle")
        result = find(frame, "text", "Converted value")
        if result is None:
            fail("no text named 'Converted value'")
        wait_for("the result", lambda: text_of(result) == expected, seconds=5,
                 why=lambda: "%s %s in %s: shows %r, expected %r"
                 % (value, initial, converted, text_of(result), expected))
        print("ok", value, initial, "=", expected, converted)

    # From Mass, the quantity before it in alphabetical order.
    subprocess.run(["xdotool", "search", "--name", "^Mensura 98$", "windowfocus", "--sync"],
                   check=True)
    subprocess.run(["xdotool", "key", "ctrl+shift+Tab"], check=True)
    wait_for("Ctrl+Shift+Tab", lambda: current_quantity(strip) == "Magnetomotive Force",
             why=lambda: "Ctrl+Shift+Tab from Mass: %r current" % current_quantity(strip))
    print("ok Ctrl+Shift+Tab")

    subprocess.run(["xdotool", "key", "ctrl+q"], check=True)
    wait_for("Ctrl+Q to end the program", lambda: subprocess.run(
        ["xdotool", "search", "--name", "^Mensura 98$"], capture_output=True).returncode != 0)
    print("ok Ctrl+Q")


main()
