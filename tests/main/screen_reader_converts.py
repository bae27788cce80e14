#!/usr/bin/python3
# A screen reader's view of the main window, through the accessibility bus alone: the value box,
# the unit lists, the quantity tabs and the result are found by their accessible names, driven
# as an assistive technology drives them (text set, list items and tabs selected), and the
# result read back. Run by with_screen_reader_bus.sh; exits non-zero on the first failure.
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


def text_of(node):
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


def main():
    app = wait_for("the program on the accessibility bus", application)
    frame = wait_for("the main window", lambda: find(app, "frame", "Mensura 98"))
    for value, quantity, initial, converted, expected in CONVERSIONS:
        tabs = wait_for("the quantity tabs", lambda: find(frame, "page tab list"))
        act(tabs, "page tab", quantity, "Press")
        wait_for("the %s tab" % quantity, lambda: tabs.get_name() == quantity)
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


main()
