"""The files that pictures are kept in. Pixels come row by row, as a colour, or
None where nothing is drawn."""

import struct
import zlib

from drawing import SIZE

MASK = (192, 192, 192)  # not drawn by the launcher in a picture without a mask


def indexed(pixels, palette, empty):
    return [[empty if c is None else palette.index(c) for c in row] for row in pixels]


def colors_of(pixels):
    return sorted({c for row in pixels for c in row if c})


def packed_rows(rows, bits):
    """Rows from the bottom up, each padded to four bytes."""
    data = b""
    for row in reversed(rows):
        number = 0
        for value in row:
            number = number << bits | value
        line = number.to_bytes(len(row) * bits // 8, "big")
        data += line + bytes(-len(line) % 4)
    return data


def bitmap_header(width, height, bits, data_size):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, data_size, 0, 0, 0, 0)


def color_table(palette, bits):
    table = b"".join(bytes((b, g, r, 0)) for r, g, b in palette)
    return table + bytes(4 * 2**bits - len(table))


def bmp(pixels):
    """8 bits a pixel; the background is the mask colour."""
    palette = [MASK] + colors_of(pixels)
    assert MASK not in palette[1:] and len(palette) <= 256
    data = packed_rows(indexed(pixels, palette, 0), 8)
    table = color_table(palette, 8)
    offset = 14 + 40 + len(table)
    header = struct.pack("<2sIHHI", b"BM", offset + len(data), 0, 0, offset)
    return header + bitmap_header(SIZE, SIZE, 8, len(data)) + table + data


def icon_image(pixels, palette=None, bits=8):
    """The colours, black where nothing is drawn, then the mask."""
    palette = palette or [(0, 0, 0)] + colors_of(pixels)
    assert len(palette) <= 2**bits
    data = packed_rows(indexed(pixels, palette, 0), bits)
    data += packed_rows([[int(c is None) for c in row] for row in pixels], 1)
    size = len(pixels)
    return size, bits, bitmap_header(size, 2 * size, bits, len(data)) + color_table(palette, bits) + data


def png_image(pixels):
    """32 bits a pixel."""
    size = len(pixels)
    data = b"".join(b"\0" + bytes(part for pixel in row for part in pixel) for row in pixels)

    def chunk(kind, content):
        check = zlib.crc32(kind + content)
        return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", check)

    header = struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)
    parts = {b"IHDR": header, b"IDAT": zlib.compress(data, 9), b"IEND": b""}
    return size, 32, b"\x89PNG\r\n\x1a\n" + b"".join(chunk(*part) for part in parts.items())


def ico(*images):
    place = 6 + 16 * len(images)
    entries = b""
    for size, bits, image in images:
        colors = 2**bits % 256 if bits < 8 else 0
        entries += struct.pack("<BBBBHHII", size % 256, size % 256, colors, 0, 1, bits, len(image), place)
        place += len(image)
    return struct.pack("<HHH", 0, 1, len(images)) + entries + b"".join(image for *_, image in images)


def lzw(values, bits):
    """The compressed codes of a GIF image, in sub-blocks."""
    clear, end = 1 << bits, (1 << bits) + 1
    table = {(i,): i for i in range(clear)}
    width, codes, prefix = bits + 1, [(clear, bits + 1)], ()
    for value in values:
        if prefix + (value,) in table:
            prefix += (value,)
            continue
        codes.append((table[prefix], width))
        table[prefix + (value,)] = len(table) + 2  # the codes clear and end stand between
        if len(table) + 1 == 1 << width:
            width += 1
        prefix = (value,)
    codes += [(table[prefix], width)]
    codes += [(end, width + (len(table) + 2 == 1 << width))]
    number = shift = 0
    for code, size in codes:
        number |= code << shift
        shift += size
    data = number.to_bytes((shift + 7) // 8, "little")
    blocks = [data[i : i + 255] for i in range(0, len(data), 255)]
    return b"".join(bytes([len(block)]) + block for block in blocks) + b"\0"


def gif(pixels):
    """One image, whose colour 0 is transparent."""
    palette = [MASK] + colors_of(pixels)
    bits = max(2, (len(palette) - 1).bit_length())
    palette += [(0, 0, 0)] * (2**bits - len(palette))
    values = [value for row in indexed(pixels, palette, 0) for value in row]
    screen = struct.pack("<6sHHBBB", b"GIF89a", SIZE, SIZE, 0xF0 | bits - 1, 0, 0)
    control = struct.pack("<BBBBHBB", 0x21, 0xF9, 4, 1, 0, 0, 0)
    image = struct.pack("<BHHHHBB", 0x2C, 0, 0, SIZE, SIZE, 0, bits)
    return screen + bytes(sum(palette, ())) + control + image + lzw(values, bits) + b";"
