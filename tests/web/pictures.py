# SPDX-License-Identifier: MIT
"""Reads PNG files with 8 bits for each channel: screenshots, and the pictures of murmelo-headless."""
import struct
import zlib

_CHANNELS = {0: 1, 2: 3, 4: 2, 6: 4}  # of the kinds of PNG that are read here: grey and colour, with and without alpha


class Picture:
    """A picture. `rows` holds the bytes of each row, `channels` bytes for each pixel."""

    def __init__(self, path):
        with open(path, "rb") as file:
            data = file.read()
        if data[:8] != b"\x89PNG\r\n\x1a\n":
            raise ValueError("%s is no PNG" % path)
        packed, at = b"", 8
        while at < len(data):
            length, kind = struct.unpack_from(">I4s", data, at)
            if kind == b"IHDR":
                self.width, self.height, depth, colour, _, _, interlaced = struct.unpack_from(">IIBBBBB", data, at + 8)
                if depth != 8 or colour not in _CHANNELS or interlaced:
                    raise ValueError("%s: depth %d, colour type %d, interlace %d" % (path, depth, colour, interlaced))
            elif kind == b"IDAT":
                packed += data[at + 8:at + 8 + length]
            at += 12 + length
        self.channels = _CHANNELS[colour]
        self.rows = self._unfiltered(zlib.decompress(packed))

    def pixel(self, x, y):
        """The channels of one pixel, as a tuple."""
        return tuple(self.rows[y][x * self.channels:(x + 1) * self.channels])

    def rgb(self):
        """Red, green and blue of all pixels, row after row; alpha is left out."""
        if self.channels < 3:
            raise ValueError("the picture is grey")
        whole = b"".join(self.rows)
        colours = bytearray(self.width * self.height * 3)
        for channel in range(3):
            colours[channel::3] = whole[channel::self.channels]
        return bytes(colours)

    def _unfiltered(self, data):
        step, size = self.channels, self.width * self.channels
        rows, above = [], bytes(size)
        for start in range(0, self.height * (size + 1), size + 1):
            kind, row = data[start], bytearray(data[start + 1:start + 1 + size])
            if kind == 1:
                for i in range(step, size):
                    row[i] = row[i] + row[i - step] & 255
            elif kind == 2:
                for i in range(size):
                    row[i] = row[i] + above[i] & 255
            elif kind == 3:
                for i in range(size):
                    row[i] = row[i] + ((row[i - step] if i >= step else 0) + above[i]) // 2 & 255
            elif kind == 4:
                for i in range(size):
                    left, corner = (row[i - step], above[i - step]) if i >= step else (0, 0)
                    row[i] = row[i] + _paeth(left, above[i], corner) & 255
            elif kind != 0:
                raise ValueError("filter %d" % kind)
            above = bytes(row)
            rows.append(above)
        return rows


def _paeth(left, above, corner):
    guess = left + above - corner
    return min((left, above, corner), key=lambda value: abs(guess - value))
