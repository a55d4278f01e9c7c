"""The window managers that the desktop tests run under, and in what they differ."""

import os
from dataclasses import dataclass, field

# No button binding for a window's inside: the window manager leaves a press there to the program, so
# that a window which comes to the front has done so by itself. Two keys, by which the desktop maximises and restores, and closes.
OPENBOX_CONFIG = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <desktops><number>1</number><popupTime>0</popupTime></desktops>
  <keyboard><keybind key="W-m"><action name="ToggleMaximize"/></keybind><keybind key="W-q"><action name="Close"/></keybind></keyboard>
  <mouse/>
</openbox_config>
"""

@dataclass(frozen=True)
class Manager:
    command: tuple # FOLDER in it is the desktop's folder
    files: dict # its settings, by their place in that folder
    environment: dict = field(default_factory=dict)
    maximise: str = "super+m" # the desktop's key that maximises a window and restores it
    close: str = "super+q" # and the one that closes it
    any_release_ends_a_move: bool = False # else only the left button's does
    keeps_on_screen: bool = False # all of a window that its program moves


MANAGERS = {
    "openbox": Manager(("openbox", "--sm-disable", "--config-file", "FOLDER/rc.xml"), {"rc.xml": OPENBOX_CONFIG}),
    # As it comes, for which it must not find a user's settings.
    "metacity": Manager(("metacity", "--sm-disable", "--compositor=none"), {}, {"GSETTINGS_BACKEND": "memory"},
                        maximise="alt+F10", close="alt+F4", any_release_ends_a_move=True, keeps_on_screen=True),
}


def chosen_manager():
    return MANAGERS[os.environ.get("DESKTOP_MANAGER", "openbox")]
