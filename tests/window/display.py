"""A display in memory with a mouse, a keyboard and pictures of what it really shows, by way of the X libraries."""

import ctypes
import struct
import subprocess
import zlib

X11 = ctypes.CDLL("libX11.so.6")
XTEST = ctypes.CDLL("libXtst.so.6")
WIDTH, HEIGHT = 2600, 1800  # for a phone on its side, two pixels a point
ALL_PLANES, Z_PIXMAP = 0xFFFFFFFF, 2


class XImage(ctypes.Structure):
    """The fields of Xlib's structure that come before its functions."""

    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int), ("format", ctypes.c_int),
                ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int),
                ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int), ("depth", ctypes.c_int),
                ("bytes_per_line", ctypes.c_int), ("bits_per_pixel", ctypes.c_int)]


class ClientMessage(ctypes.Structure):
    """Xlib's event of that name; what follows it is as long as its longest event."""

    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int), ("display", ctypes.c_void_p),
                ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong), ("format", ctypes.c_int),
                ("data", ctypes.c_long * 5), ("rest", ctypes.c_long * 12)]


CLIENT_MESSAGE = 33

for name, result, arguments in (
    ("XOpenDisplay", ctypes.c_void_p, [ctypes.c_char_p]),
    ("XDefaultRootWindow", ctypes.c_ulong, [ctypes.c_void_p]),
    ("XSync", ctypes.c_int, [ctypes.c_void_p, ctypes.c_int]),
    ("XCloseDisplay", ctypes.c_int, [ctypes.c_void_p]),
    ("XKeysymToKeycode", ctypes.c_ubyte, [ctypes.c_void_p, ctypes.c_ulong]),
    ("XStringToKeysym", ctypes.c_ulong, [ctypes.c_char_p]),
    ("XSetInputFocus", ctypes.c_int, [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_ulong]),
    ("XInternAtom", ctypes.c_ulong, [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]),
    ("XSendEvent", ctypes.c_int, [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long, ctypes.c_void_p]),
    ("XMoveWindow", ctypes.c_int, [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int]),
    ("XDestroyImage", ctypes.c_int, [ctypes.c_void_p]),
    ("XGetImage", ctypes.POINTER(XImage), [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint,
                                           ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]),
):
    function = getattr(X11, name)
    function.restype, function.argtypes = result, arguments


class Picture:
    """Pixels as bytes, four to each: blue, green, red and one that says nothing."""

    def __init__(self, width, height, data):
        self.width, self.height, self.data = width, height, data

    def at(self, x, y):
        """Red, green, blue."""
        blue, green, red = self.data[(y * self.width + x) * 4 : (y * self.width + x) * 4 + 3]
        return red, green, blue

    def part(self, x, y, width, height):
        rows = (self.data[((y + row) * self.width + x) * 4 : ((y + row) * self.width + x + width) * 4] for row in range(height))
        return Picture(width, height, b"".join(rows))

    def differs(self, other, least=24):
        """The share of pixels of which a colour differs by more than `least` of 255."""
        assert (self.width, self.height) == (other.width, other.height)
        mine, theirs = self.data, other.data
        count = 0
        for row in range(0, len(mine), self.width * 4):
            if mine[row : row + self.width * 4] == theirs[row : row + self.width * 4]:
                continue
            for i in range(row, row + self.width * 4, 4):
                count += any(abs(mine[i + part] - theirs[i + part]) > least for part in range(3))
        return count / (self.width * self.height)


def read_png(path):
    """The simulator's own pictures: eight bits a colour, three colours a pixel, no row filtered."""
    file = path.read_bytes()
    place, packed = 8, b""
    while place < len(file):
        length, kind = struct.unpack(">I4s", file[place : place + 8])
        if kind == b"IHDR":
            width, height, depth, colours = struct.unpack(">IIBB", file[place + 8 : place + 18])
            assert (depth, colours) == (8, 2), "not a picture of the simulator's"
        elif kind == b"IDAT":
            packed += file[place + 8 : place + 8 + length]
        place += length + 12
    lines, stride = zlib.decompress(packed), width * 3
    data = bytearray(width * height * 4)
    for y in range(height):
        start = y * (stride + 1)
        assert lines[start] == 0, "a row is filtered"
        row = slice(start + 1, start + 1 + stride)
        for part in range(3):
            data[y * width * 4 + part : (y + 1) * width * 4 : 4] = lines[row][2 - part :: 3]
    return Picture(width, height, bytes(data))


class Display:
    def __init__(self):
        # The server picks a free number and says which.
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", "1", "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-nolisten", "tcp"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.name = f":{int(self.server.stdout.readline())}"
        self.display = X11.XOpenDisplay(self.name.encode())
        self.root = X11.XDefaultRootWindow(self.display)

    def close(self):
        X11.XCloseDisplay(self.display)
        self.server.terminate()
        self.server.wait()
        self.server.stdout.close()

    def window(self):
        """The window at the top, put into the corner; None when there is none."""
        root, parent, children, count = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.POINTER(ctypes.c_ulong)(), ctypes.c_uint()
        X11.XQueryTree(ctypes.c_void_p(self.display), ctypes.c_ulong(self.root), ctypes.byref(root), ctypes.byref(parent),
                       ctypes.byref(children), ctypes.byref(count))
        return children[count.value - 1] if count.value else None

    def focus(self, window):
        """What a window manager does: the window stands in the corner and has the keyboard."""
        X11.XMoveWindow(self.display, window, 0, 0)
        X11.XSetInputFocus(self.display, window, 1, 0)
        X11.XSync(self.display, 0)

    def ask_to_close(self, window):
        """What a window manager does when the window's cross is pressed."""
        protocols, delete = (X11.XInternAtom(self.display, name, 0) for name in (b"WM_PROTOCOLS", b"WM_DELETE_WINDOW"))
        message = ClientMessage(type=CLIENT_MESSAGE, window=window, message_type=protocols, format=32)
        message.data[0] = delete
        X11.XSendEvent(self.display, window, 0, 0, ctypes.byref(message))
        X11.XSync(self.display, 0)

    def move(self, x, y):
        XTEST.XTestFakeMotionEvent(ctypes.c_void_p(self.display), -1, int(x), int(y), ctypes.c_ulong(0))
        X11.XSync(self.display, 0)

    def button(self, down, number=1):
        XTEST.XTestFakeButtonEvent(ctypes.c_void_p(self.display), number, int(down), ctypes.c_ulong(0))
        X11.XSync(self.display, 0)

    def key(self, name, down):
        code = X11.XKeysymToKeycode(self.display, X11.XStringToKeysym(name.encode()))
        XTEST.XTestFakeKeyEvent(ctypes.c_void_p(self.display), code, int(down), ctypes.c_ulong(0))
        X11.XSync(self.display, 0)

    def press(self, name, holding=None):
        if holding:
            self.key(holding, True)
        self.key(name, True)
        self.key(name, False)
        if holding:
            self.key(holding, False)

    def give_keys(self, text):
        """Gives the keyboard a key for each character, as layouts with such keys have; before a window opens."""
        for code, character in enumerate(dict.fromkeys(text), 200):
            symbol = (ctypes.c_ulong * 1)(0x1000000 + ord(character))
            X11.XChangeKeyboardMapping(ctypes.c_void_p(self.display), code, 1, symbol, 1)
        X11.XSync(self.display, 0)

    def type(self, text):
        for character in text:
            self.press(f"U{ord(character):04X}" if ord(character) > 0x7F else character)

    def picture(self, x=0, y=0, width=WIDTH, height=HEIGHT):
        """What the screen shows."""
        image = X11.XGetImage(self.display, self.root, x, y, width, height, ALL_PLANES, Z_PIXMAP)
        fields = image.contents
        data = ctypes.string_at(fields.data, fields.bytes_per_line * height)
        X11.XDestroyImage(image)
        return Picture(width, height, data)
