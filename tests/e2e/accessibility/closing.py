"""Closes a window as the button in its frame does: the window manager asks the program for it. There is none on a test's display."""

import ctypes

CLIENT_MESSAGE = 33


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int), ("display", ctypes.c_void_p),
                ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong), ("format", ctypes.c_int),
                ("data", ctypes.c_long * 5)]


class Event(ctypes.Union):
    _fields_ = [("message", ClientMessage), ("room", ctypes.c_long * 24)]


def ask_to_close(window):
    """The window by its number."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    x11.XInternAtom.restype = ctypes.c_ulong
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    protocols, delete = (x11.XInternAtom(display, name, 0) for name in (b"WM_PROTOCOLS", b"WM_DELETE_WINDOW"))
    event = Event()
    event.message = ClientMessage(CLIENT_MESSAGE, 0, 1, display, window, protocols, 32, (ctypes.c_long * 5)(delete))
    x11.XSendEvent(display, ctypes.c_ulong(window), 0, 0, ctypes.byref(event))
    x11.XCloseDisplay(display)
