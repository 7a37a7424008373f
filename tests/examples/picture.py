"""Pixels of a PNG."""
import struct
import zlib


class Picture:
    """The uppermost rows of a picture of 8-bit channels, as snapshots are."""

    def __init__(self, file, height):
        with open(file, "rb") as source:
            contents = source.read()
        compressed, at = b"", 8
        while at < len(contents):
            length, kind = struct.unpack(">I4s", contents[at:at + 8])
            body = contents[at + 8:at + 8 + length]
            if kind == b"IHDR":
                self.width, _, depth, colours = struct.unpack(">IIBB", body[:10])
                assert depth == 8 and colours in (2, 6), (depth, colours)
                self.channels = {2: 3, 6: 4}[colours]
            elif kind == b"IDAT":
                compressed += body
            at += length + 12
        self.rows = self._unfiltered(zlib.decompress(compressed), height)

    def _unfiltered(self, lines, height):
        stride, step = self.width * self.channels, self.channels
        rows, above = [], bytearray(stride)
        for y in range(height):
            start = y * (stride + 1)
            kind, row = lines[start], bytearray(lines[start + 1:start + 1 + stride])
            for x in range(stride):
                left = row[x - step] if x >= step else 0
                if kind == 1:
                    row[x] = (row[x] + left) & 255
                elif kind == 2:
                    row[x] = (row[x] + above[x]) & 255
                elif kind == 3:
                    row[x] = (row[x] + (left + above[x]) // 2) & 255
                elif kind == 4:
                    corner = above[x - step] if x >= step else 0
                    estimate = left + above[x] - corner
                    nearest = min((left, above[x], corner), key=lambda value: abs(estimate - value))
                    row[x] = (row[x] + nearest) & 255
            rows.append(row)
            above = row
        return rows

    def pixel(self, x, y):
        """Red, green and blue."""
        at = int(x) * self.channels
        return tuple(self.rows[int(y)][at:at + 3])
