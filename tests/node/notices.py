# notices.py [CAPABILITY...]: a notification service on the session bus, for tests. Prints each notification as a line of
# JSON, and "ready" first. With the one capability "refuse" it answers each with an error.
import json
import sys

import gi

gi.require_version('Gio', '2.0')
from gi.repository import Gio, GLib

NAME = 'org.freedesktop.Notifications'
INTERFACE = '''<node><interface name="org.freedesktop.Notifications">
<method name="GetCapabilities"><arg direction="out" type="as"/></method>
<method name="Notify"><arg direction="in" type="s" name="app"/><arg direction="in" type="u" name="replaces"/>
<arg direction="in" type="s" name="icon"/><arg direction="in" type="s" name="summary"/><arg direction="in" type="s" name="body"/>
<arg direction="in" type="as" name="actions"/><arg direction="in" type="a{sv}" name="hints"/>
<arg direction="in" type="i" name="timeout"/><arg direction="out" type="u"/></method>
</interface></node>'''


def say(text):
    print(text, flush=True)


def on_call(bus, sender, path, interface, method, arguments, invocation):
    if method == 'GetCapabilities':
        invocation.return_value(GLib.Variant('(as)', (sys.argv[1:],)))
    elif sys.argv[1:] == ['refuse']:
        invocation.return_dbus_error('org.example.Full', 'too many at once')
    else:
        app, replaces, icon, summary, body, actions, hints, timeout = arguments.unpack()
        say(json.dumps({'replaces': replaces, 'icon': icon, 'summary': summary, 'body': body, 'actions': actions, 'timeout': timeout}))
        invocation.return_value(GLib.Variant('(u)', (1,)))


def on_bus(bus, name):
    bus.register_object('/org/freedesktop/Notifications', Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], on_call, None, None)


Gio.bus_own_name(Gio.BusType.SESSION, NAME, Gio.BusNameOwnerFlags.NONE, on_bus, lambda bus, name: say('ready'), None)
GLib.MainLoop().run()
