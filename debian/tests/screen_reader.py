"""What a screen reader is offered of the programs on a display, found and worked by role and text.

Every wait is for something to appear or to go, and fails after the longest that a slow machine could need.
"""

import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

ALERT, BUTTON, FIELD, ROW, TAB = (
    Atspi.Role.DIALOG, Atspi.Role.PUSH_BUTTON, Atspi.Role.TEXT, Atspi.Role.LIST_ITEM, Atspi.Role.PAGE_TAB)
LONGEST_WAIT = 60


def descendants(node):
    """Everything below a node that is there by now; what goes while it is looked at is passed over."""
    try:
        for index in range(node.get_child_count()):
            child = node.get_child_at_index(index)
            if child is not None:
                yield child
                yield from descendants(child)
    except GLib.Error:
        return


def fits(node, role, text):
    try:
        description = node.get_description()
        is_meant = node.get_role() == role and text in (node.get_name(), description, *description.split(", "))
        return is_meant and node.get_state_set().contains(Atspi.StateType.SHOWING)
    except GLib.Error:
        return False


def find(role, text, below=None):
    """What is shown with the role and has the text for its name, its description or a part of that, or None."""
    return next((node for node in descendants(below or Atspi.get_desktop(0)) if fits(node, role, text)), None)


def wait_until(condition, what):
    print(f"waiting for {what}", flush=True)
    end = time.monotonic() + LONGEST_WAIT
    while time.monotonic() < end:
        answer = condition()
        if answer:
            return answer
        time.sleep(0.1)
    raise TimeoutError(f"never came: {what}")


def wait_for(role, text, below=None):
    return wait_until(lambda: find(role, text, below), text)


def press(role, text, below=None):
    press_node(wait_for(role, text, below))


def press_node(node):
    actions = [Atspi.Action.get_action_name(node, index) for index in range(Atspi.Action.get_n_actions(node))]
    Atspi.Action.do_action(node, actions.index("Press"))


def enqueue(name):
    """From a screen that lists the package to the queue and back to its page."""
    press(ROW, name)
    press(ROW, "Install")
    press(BUTTON, "OK", below=wait_for(ALERT, f"{name} added to the queue."))


def run_queue(count):
    """From any screen; ends at the report, once all of so many entries completed."""
    press(TAB, "Manage")
    press(ROW, "Queued Changes")
    press(BUTTON, "Install")
    return wait_for(ALERT, f"{count} completed, 0 failed")
