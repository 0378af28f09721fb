"""The running program as a person meets it who listens and types: its tree and its events on the accessibility bus, and real
keys and presses of the mouse on a display of its own.

Every wait is for something to appear and fails after a while, with the tree as it was then.
"""

import os
import subprocess
import time

import gi
from closing import ask_to_close

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LONGEST_WAIT = 60


class Node:
    """One object of the tree. Asks the program anew each time, so what it says is what holds now."""

    def __init__(self, accessible):
        self.accessible = accessible

    def __repr__(self):
        return f"{self.role} {self.name!r} {self.description!r}"

    @property
    def role(self):
        return self.accessible.get_role_name()

    @property
    def name(self):
        return self.accessible.get_name()

    @property
    def description(self):
        return self.accessible.get_description()

    @property
    def states(self):
        return {state.value_nick for state in self.accessible.get_state_set().get_states()}

    @property
    def interfaces(self):
        return set(self.accessible.get_interfaces())

    @property
    def place(self):
        """Left, top, width and height in the window."""
        box = Atspi.Component.get_extents(self.accessible, Atspi.CoordType.WINDOW)
        return box.x, box.y, box.width, box.height

    @property
    def text(self):
        return Atspi.Text.get_text(self.accessible, 0, Atspi.Text.get_character_count(self.accessible))

    @property
    def cursor(self):
        return Atspi.Text.get_caret_offset(self.accessible)

    def write(self, text):
        return Atspi.EditableText.set_text_contents(self.accessible, text)

    def insert(self, place, text):
        return Atspi.EditableText.insert_text(self.accessible, place, text, len(text.encode()))

    def delete(self, begin, end):
        return Atspi.EditableText.delete_text(self.accessible, begin, end)

    @property
    def children(self):
        count = self.accessible.get_child_count()
        found = (self.accessible.get_child_at_index(index) for index in range(count))
        return [Node(child) for child in found if child is not None]

    def descendants(self):
        """Everything below it from top to bottom; what goes while it is looked at is passed over."""
        try:
            for child in self.children:
                yield child
                yield from child.descendants()
        except GLib.Error:
            return

    @property
    def actions(self):
        if "Action" not in self.interfaces:
            return []
        count = Atspi.Action.get_n_actions(self.accessible)
        return [Atspi.Action.get_action_name(self.accessible, index) for index in range(count)]

    def act(self, action, index=None):
        """Whether the program says that it did it. An index known from before can be asked for though no action has it."""
        place = self.actions.index(action) if index is None else index
        try:
            return Atspi.Action.do_action(self.accessible, place)
        except GLib.Error:
            return False

    def press(self):
        return self.act("Press")


class Listener:
    """A display, the program on it, and what it tells."""

    def __init__(self):
        read_end, write_end = os.pipe()
        self.display = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write_end), "-nolisten", "unix", "-screen", "0", "600x900x24"],
            pass_fds=[write_end], stderr=subprocess.DEVNULL)
        os.close(write_end)
        with open(read_end, encoding="ascii") as number:
            os.environ["DISPLAY"] = f":{number.readline().strip()}"
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        self.heard = []
        self.listener = Atspi.EventListener.new(self.hear)
        for kind in ("object:state-changed", "object:property-change"):
            self.listener.register(kind)
        self.program = subprocess.Popen([os.environ["VESK"]])
        self.root = Node(self.wait_until(self.find_program, "the program on the bus"))
        self.root.accessible.set_cache_mask(Atspi.Cache.NONE)
        self.window = subprocess.run(["xdotool", "search", "--sync", "--onlyvisible", "--class", "vesk"], check=True,
                                     capture_output=True, text=True).stdout.split()[0]
        subprocess.run(["xdotool", "windowfocus", "--sync", self.window], check=True)
        self.wait_until(lambda: any("active" in node.states for node in self.root.children), "the window in front")

    def close_window(self):
        """The program's exit status, when it ends because its only window is closed."""
        ask_to_close(int(self.window))
        return self.program.wait(timeout=LONGEST_WAIT)

    def end(self):
        """The program's exit status; a second time it is only said again."""
        self.program.terminate()
        status = self.program.wait(timeout=LONGEST_WAIT)
        self.display.terminate()
        self.display.wait(timeout=LONGEST_WAIT)
        return status

    @staticmethod
    def find_program():
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application is not None and application.get_name() == "vesk":
                return application
        return None

    def hear(self, event):
        """Called as the events come; what they are about is asked for at once, as a screen reader does."""
        try:
            self.heard.append((event.type, event.detail1, Node(event.source).role, event.source.get_name(),
                               event.source.get_description()))
        except GLib.Error:
            return

    # What there is.

    @staticmethod
    def turn():
        context = GLib.MainContext.default()
        while context.iteration(False):
            pass

    def wait_until(self, condition, wanted):
        end = time.monotonic() + LONGEST_WAIT
        while True:
            self.turn()
            answer = self.answer_of(condition)
            if answer:
                return answer
            if time.monotonic() > end:
                raise AssertionError(f"waited in vain for {wanted}\n{self.outline()}")
            time.sleep(0.01)

    @staticmethod
    def answer_of(condition):
        """None also when something that it asked is gone meanwhile."""
        try:
            return condition()
        except GLib.Error:
            return None

    def outline(self):
        if not hasattr(self, "root"):
            return ""
        return "\n".join(f"{node!r} {sorted(node.states)}" for node in self.root.descendants())

    def nodes(self, role=None):
        return [node for node in self.root.descendants() if role in (None, node.role)]

    def names(self, role):
        return [node.name for node in self.nodes(role)]

    def find(self, role, name):
        """The one under that role and name, or None. A bar's button and a row may share a name, but not their role."""
        return next((node for node in self.nodes(role) if node.name == name), None)

    def wait_for(self, role, name):
        return self.wait_until(lambda: self.find(role, name), f"{role} {name!r}")

    def wait_until_gone(self, role, name):
        self.wait_until(lambda: not self.find(role, name), f"no {role} {name!r}")

    @property
    def titles(self):
        """Those of the bar above the screen: two while one screen takes another's place."""
        return [node.name for node in self.nodes("heading") if "showing" in node.states and node.place[1] == 0]

    def reach(self, title):
        self.wait_until(lambda: self.titles == [title] and self.find("list", title), f"the screen {title!r}")

    @property
    def rows(self):
        return self.nodes("list item")

    @property
    def focused(self):
        return [node for node in self.root.descendants() if "focused" in node.states]

    # What a person does.

    def key(self, *keys):
        subprocess.run(["xdotool", "key", *keys], check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", text], check=True)

    def click(self, x, y, button=1):
        subprocess.run(["xdotool", "mousemove", "--window", self.window, str(x), str(y), "click", str(button)], check=True)

    def focus_heard_after(self, *keys):
        """What is told to have the keyboard after these keys: role, name and description."""
        self.hear_out()
        self.heard.clear()
        self.key(*keys)
        self.wait_until(self.focus_heard, f"a focus after {keys}")
        self.hear_out()
        return self.focus_heard()[-1]

    def hear_out(self):
        """Hears all that the program has said by now: its answer to a question comes after it."""
        self.root.accessible.get_child_count()
        self.turn()

    def states_heard(self, state, role, name):
        """Each change of that state that was told of it: 1 where it was gained, 0 where it was lost."""
        return [gained for kind, gained, *what in self.heard
                if kind == f"object:state-changed:{state}" and what[:2] == [role, name]]

    def changes_heard(self, what, role):
        """Name and description, as they were then, of each thing of that role that was told to have changed in that."""
        return [(name, description) for kind, _, source, name, description in self.heard
                if kind == f"object:property-change:{what}" and source == role]

    def focus_heard(self):
        return [what for kind, gained, *what in self.heard if kind == "object:state-changed:focused" and gained]

    def press(self, role, name):
        node = self.wait_for(role, name)
        assert node.press(), f"{node!r} cannot be pressed"
