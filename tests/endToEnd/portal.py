"""A desktop's portal that knows one setting, whether the desktop is dark. It says "ready", and then takes a value (1 is
dark) from each line of its standard input; the first one is its argument. Run by the system's Python, which has GLib."""

import sys

from gi.repository import Gio, GLib

GROUP, KEY = "org.freedesktop.appearance", "color-scheme"
PATH, INTERFACE = "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings"
DESCRIPTION = f"""<node><interface name="{INTERFACE}">
<method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/></method>
<signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>"""


def main():
    value = GLib.Variant("u", int(sys.argv[1]))
    loop = GLib.MainLoop()

    def answer(_bus, _sender, _path, _interface, _method, question, call):
        if question.unpack() == (GROUP, KEY):
            call.return_value(GLib.Variant("(v)", [GLib.Variant("v", value)]))
        else:
            call.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")

    def take_line(channel, _condition):
        nonlocal value
        line = channel.readline()
        if not line:
            loop.quit()
            return False
        value = GLib.Variant("u", int(line))
        bus.emit_signal(None, PATH, INTERFACE, "SettingChanged", GLib.Variant("(ssv)", [GROUP, KEY, value]))
        return True

    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(DESCRIPTION).interfaces[0], answer, None, None)
    Gio.bus_own_name_on_connection(bus, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE,
                                   lambda *_: print("ready", flush=True), None)
    GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IOCondition.IN | GLib.IOCondition.HUP, take_line)
    loop.run()


if __name__ == "__main__":
    main()
