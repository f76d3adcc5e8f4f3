# reader.py: what a screen reader does, for tests: it sees programs through the desktop's accessibility bus alone. Reads one
# JSON array a line from standard input, the name of a function below and its arguments, and answers with one line of JSON.
import json
import random
import sys
import time
import warnings

import gi

gi.require_version('Atspi', '2.0')
from gi.repository import Atspi, GLib

warnings.simplefilter('ignore', DeprecationWarning)

SILENT = {'section', 'filler', 'form', 'panel'}  # what only groups


def children(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield child


def window(title, seconds=20):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        for program in children(Atspi.get_desktop(0)):
            for each in children(program):
                if each.get_name() == title:
                    return each
        time.sleep(0.05)
    raise LookupError(f'no window {title}')


def walk(node):
    yield node
    for child in children(node):
        yield from walk(child)


def text_of(node):
    text = node.get_text_iface()
    return Atspi.Text.get_text(text, 0, -1) if text else ''


def line_of(node):
    line = node.get_role_name()
    if node.get_name():
        line += f' "{node.get_name()}"'
    if node.get_description():
        line += f' ({node.get_description()})'
    if text_of(node):
        line += f' [{text_of(node)}]'
    return line


def find(title, role, name):
    for node in walk(window(title)):
        if node.get_role_name() == role and name in (node.get_name(), node.get_description()):
            return node
    raise LookupError(f'no {role} {name}')


def read(title):
    return [line_of(node) for node in walk(window(title)) if node.get_role_name() not in SILENT]


def press(title, role, name):
    return Atspi.Action.do_action(find(title, role, name).get_action_iface(), 0)


def type_into(title, name, text):
    return Atspi.EditableText.set_text_contents(find(title, 'text', name).get_editable_text_iface(), text)


def state(title, role, name):
    states = find(title, role, name).get_state_set()
    return sorted(Atspi.StateType(each).value_nick for each in states.get_states())


def ask_valid(node):
    """One question that the node can answer."""
    kind = random.randrange(6)
    if kind == 0:
        node.get_name()
    elif kind == 1:
        node.get_role()
    elif kind == 2:
        node.get_child_count()
    elif kind == 3:
        node.get_state_set()
    elif kind == 4:
        component = node.get_component_iface()
        if component:
            Atspi.Component.get_extents(component, Atspi.CoordType.SCREEN)
    else:
        text_of(node)


def ask_invalid(node):
    """One question about what is not there."""
    odd = random.choice([-1, -2, 999, 2**31 - 1, -2**31])
    kind = random.randrange(5)
    try:
        if kind == 0:
            node.get_child_at_index(odd)
        elif kind == 1 and node.get_text_iface():
            Atspi.Text.get_text(node.get_text_iface(), odd, -odd if odd > -2**31 else odd)
        elif kind == 2 and node.get_text_iface():
            Atspi.Text.get_character_extents(node.get_text_iface(), odd, Atspi.CoordType.SCREEN)
        elif kind == 3 and node.get_action_iface():
            Atspi.Action.do_action(node.get_action_iface(), random.choice([7, 999, -3]))
        elif node.get_table_iface():
            Atspi.Table.get_accessible_at(node.get_table_iface(), odd, odd)
        else:
            node.get_child_at_index(odd)
    except GLib.Error:
        pass  # the program has refused, as it should


def ask(title, count):
    """As many valid questions as invalid ones; how many of each."""
    nodes = list(walk(window(title)))
    for _ in range(count):
        ask_valid(random.choice(nodes))
        ask_invalid(random.choice(nodes))
    return [count, count]


for line in sys.stdin:
    name, *arguments = json.loads(line)
    try:
        answer = {'answer': globals()[name](*arguments)}
    except (LookupError, GLib.Error) as error:
        answer = {'error': str(error)}
    print(json.dumps(answer), flush=True)
