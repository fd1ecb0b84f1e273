#!/usr/bin/env python3
"""Draws the add-in's pictures. Run it after a change and commit what it writes; the build uses the files as they are.

Needs Pillow. The same version draws the same bytes.
"""
import struct
from pathlib import Path

from PIL import Image, ImageDraw, ImageFont

HERE = Path(__file__).resolve().parent
MASK = (255, 0, 255)
FACE = (192, 192, 192)
BLACK, WHITE, GREY, DARK = (0, 0, 0), (255, 255, 255), (160, 160, 164), (96, 96, 96)
YELLOW, GOLD, BLUE, LIGHT = (255, 224, 128), (168, 120, 0), (0, 72, 160), (168, 208, 255)
GREEN, RED, PURPLE = (0, 136, 56), (200, 32, 32), (120, 48, 152)


class Pen:
    """Draws what is said in pixels of a picture of 16 by 16 into one of another size, anew: lines stay a pixel wide,
    but for those that are said to be wide."""

    def __init__(self, image):
        self.draw = ImageDraw.Draw(image)
        self.scale = image.width / 16

    def places(self, numbers):
        # The pixel that holds the middle of the one that is meant.
        return [int((number + 0.5) * self.scale) for number in numbers]

    def points(self, points):
        return [tuple(self.places(point)) for point in points]

    def line(self, points, fill, width=1):
        self.draw.line(self.points(points), fill=fill, width=width if width == 1 else round(width * self.scale))

    def polygon(self, points, **colours):
        self.draw.polygon(self.points(points), **colours)

    def rectangle(self, corners, **colours):
        self.draw.rectangle(self.places(corners), **colours)

    def ellipse(self, corners, **colours):
        self.draw.ellipse(self.places(corners), **colours)


def tile(background=MASK, size=16):
    image = Image.new("RGB", (size, size), background)
    return image, Pen(image)


def folder(size, filtered=False):
    image, draw = tile(size=size)
    draw.polygon([(1, 4), (2, 3), (6, 3), (7, 4), (14, 4), (14, 13), (1, 13)], fill=YELLOW, outline=GOLD)
    draw.line([(2, 6), (13, 6)], fill=WHITE)
    if filtered:
        draw.polygon([(6, 7), (15, 7), (11, 11), (11, 15), (10, 15), (10, 11)], fill=BLUE, outline=BLACK)
    return image


def cylinder(draw, left, top, fill, edge):
    draw.rectangle([left, top + 2, left + 8, top + 10], fill=fill)
    draw.ellipse([left, top + 8, left + 8, top + 12], fill=fill, outline=edge)
    draw.rectangle([left, top + 2, left + 8, top + 9], fill=fill)
    draw.line([(left, top + 2), (left, top + 10)], fill=edge)
    draw.line([(left + 8, top + 2), (left + 8, top + 10)], fill=edge)
    draw.ellipse([left, top, left + 8, top + 4], fill=WHITE, outline=edge)


def connection(size, connected):
    image, draw = tile(size=size)
    if connected:
        cylinder(draw, 1, 1, LIGHT, BLUE)
        draw.ellipse([8, 8, 15, 15], fill=GREEN, outline=BLACK)
        draw.line([(10, 11), (11, 13), (13, 10)], fill=WHITE)
    else:
        cylinder(draw, 1, 1, FACE, DARK)
        draw.line([(9, 9), (15, 15)], fill=RED, width=2)
        draw.line([(15, 9), (9, 15)], fill=RED, width=2)
    return image


def page(draw):
    draw.polygon([(2, 1), (9, 1), (12, 4), (12, 14), (2, 14)], fill=WHITE, outline=DARK)
    draw.line([(9, 1), (9, 4), (12, 4)], fill=DARK)


def changed(draw):
    """The mark of a routine that was changed since it was built: dark enough to be told in grey, too."""
    draw.polygon([(11, 15), (15, 15), (15, 8), (13, 5), (11, 8)], fill=RED, outline=BLACK)


def procedure(size, dirty):
    image, draw = tile(size=size)
    page(draw)
    for y, width in ((6, 5), (8, 7), (10, 4), (12, 6)):
        draw.line([(4, y), (4 + width, y)], fill=BLUE)
    if dirty:
        changed(draw)
    return image


def function(size, dirty):
    image, draw = tile(size=size)
    page(draw)
    draw.line([(8, 5), (7, 5), (6, 6), (6, 12), (5, 13)], fill=PURPLE)
    draw.line([(4, 8), (9, 8)], fill=PURPLE)
    draw.line([(8, 10), (10, 12)], fill=PURPLE)
    draw.line([(10, 10), (8, 12)], fill=PURPLE)
    if dirty:
        changed(draw)
    return image


def trigger(size):
    image, draw = tile(size=size)
    draw.polygon([(9, 0), (3, 8), (7, 8), (5, 15), (13, 6), (9, 6), (12, 0)], fill=(255, 200, 0), outline=BLACK)
    return image


def table(size):
    image, draw = tile(size=size)
    draw.rectangle([1, 2, 14, 13], fill=WHITE)
    draw.rectangle([1, 2, 14, 5], fill=BLUE)
    for y in (8, 11):
        draw.line([(1, y), (14, y)], fill=GREY)
    for x in (5, 9):
        draw.line([(x, 6), (x, 13)], fill=GREY)
    draw.rectangle([1, 2, 14, 13], outline=DARK)
    return image


def view(size):
    image = table(size)
    draw = Pen(image)
    draw.ellipse([6, 6, 13, 13], fill=LIGHT, outline=BLACK)
    draw.line([(12, 12), (15, 15)], fill=BLACK, width=2)
    return image


def entry_face():
    image, draw = tile(FACE)
    cylinder(draw, 1, 2, LIGHT, BLUE)
    draw.polygon([(8, 7), (15, 7), (15, 14), (8, 14)], fill=WHITE, outline=BLACK)
    draw.line([(10, 9), (13, 9)], fill=RED)
    draw.line([(10, 11), (12, 11)], fill=RED)
    return image


def development_face():
    image, draw = tile(FACE)
    cylinder(draw, 2, 2, LIGHT, BLUE)
    draw.line([(8, 14), (14, 8)], fill=BLACK, width=3)
    draw.line([(9, 14), (14, 9)], fill=GOLD)
    draw.polygon([(12, 5), (15, 8), (15, 4)], fill=GREY, outline=BLACK)
    return image


def command_face():
    image, draw = tile(FACE)
    draw.rectangle([1, 2, 14, 13], fill=BLACK, outline=DARK)
    draw.rectangle([1, 2, 14, 4], fill=BLUE)
    draw.line([(3, 7), (5, 9), (3, 11)], fill=WHITE)
    draw.line([(7, 11), (11, 11)], fill=WHITE)
    return image


def control_face():
    image, draw = tile(FACE)
    draw.rectangle([1, 2, 14, 13], fill=WHITE, outline=BLACK)
    for x, y in ((4, 9), (8, 5), (12, 7)):
        draw.line([(x, 4), (x, 11)], fill=GREY)
        draw.rectangle([x - 1, y, x + 1, y + 1], fill=RED, outline=BLACK)
    return image


def assist_face():
    image, draw = tile(FACE)
    page(draw)
    for y in (6, 8, 10):
        draw.line([(4, y), (10, y)], fill=BLUE)
    draw.line([(9, 14), (14, 9)], fill=BLACK, width=2)
    draw.polygon([(8, 15), (9, 12), (11, 14)], fill=YELLOW, outline=BLACK)
    return image


def explain_face():
    image, draw = tile(FACE)
    for start, end in (((8, 4), (4, 11)), ((8, 4), (12, 11))):
        draw.line([start, end], fill=BLACK)
    for x, y, colour in ((8, 3, YELLOW), (4, 12, LIGHT), (12, 12, LIGHT)):
        draw.rectangle([x - 3, y - 2, x + 3, y + 2], fill=colour, outline=BLACK)
    return image


def help_face():
    image, draw = tile(FACE)
    draw.ellipse([1, 1, 14, 14], fill=BLUE, outline=BLACK)
    draw.line([(6, 5), (7, 4), (9, 4), (10, 5), (10, 6), (8, 8), (8, 9)], fill=WHITE)
    draw.line([(8, 11), (8, 12)], fill=WHITE)
    return image


def events_face():
    image, draw = tile(FACE)
    draw.rectangle([1, 2, 14, 13], fill=WHITE, outline=BLACK)
    draw.line([(3, 11), (5, 6), (7, 9), (9, 4), (12, 8)], fill=RED)
    draw.line([(3, 12), (13, 12)], fill=GREY)
    return image


FACES = {100: entry_face, 103: control_face, 105: assist_face, 107: explain_face, 109: command_face, 111: help_face,
         113: events_face, 115: development_face}


def icon():
    image = Image.new("RGBA", (64, 64))
    draw = ImageDraw.Draw(image)
    draw.rectangle([8, 14, 44, 50], fill=LIGHT, outline=BLUE)
    draw.ellipse([8, 42, 44, 58], fill=LIGHT, outline=BLUE, width=2)
    draw.rectangle([10, 14, 42, 50], fill=LIGHT)
    draw.ellipse([8, 6, 44, 22], fill=WHITE, outline=BLUE, width=2)
    draw.rectangle([32, 30, 60, 60], fill=WHITE, outline=BLACK, width=2)
    for y in (38, 45, 52):
        draw.line([(37, y), (55, y)], fill=RED, width=2)
    return image


def welcome():
    width, height = 396, 355
    image = Image.new("RGB", (width, height))
    draw = ImageDraw.Draw(image)
    for y in range(height):
        part = y / height
        draw.line([(0, y), (width, y)], fill=(int(16 + 24 * part), int(40 + 48 * part), int(88 + 72 * part)))
    for index, (x, y, size) in enumerate([(238, 60, 120), (192, 120, 96), (270, 160, 84)]):
        shade = 150 + 30 * index
        body, edge = (shade - 60, shade - 20, min(shade + 40, 255)), (230, 240, 255)
        draw.rectangle([x, y + size // 8, x + size, y + size - size // 8], fill=body)
        draw.ellipse([x, y + size - size // 4, x + size, y + size], fill=body, outline=edge)
        draw.rectangle([x + 1, y + size // 8, x + size - 1, y + size - size // 8], fill=body)
        for ring in range(3):
            top = y + ring * size // 4
            draw.ellipse([x, top, x + size, top + size // 4], fill=(210, 226, 248) if ring == 0 else body, outline=edge)
        draw.line([(x, y + size // 8), (x, y + size - size // 8)], fill=edge)
        draw.line([(x + size, y + size // 8), (x + size, y + size - size // 8)], fill=edge)
    bold = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"
    plain = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"
    draw.text((24, 28), "Rozel", font=ImageFont.truetype(bold, 46), fill=WHITE)
    draw.text((26, 84), "for Velk databases", font=ImageFont.truetype(plain, 15), fill=(190, 212, 244))
    draw.rectangle([0, 290, width, height], fill=(232, 238, 248))
    draw.text((24, 300), "Velk Development Add-In", font=ImageFont.truetype(bold, 17), fill=(24, 48, 96))
    draw.text((24, 325), "for Visual Interdev", font=ImageFont.truetype(plain, 13), fill=(64, 84, 120))
    return image.quantize(colors=200, dither=Image.Dither.NONE)


PICTURES = [
    (folder, False), (folder, True), (connection, True), (connection, False), (procedure, False), (procedure, True),
    (function, False), (function, True), (trigger,), (table,), (view,),
]
# The server view's pictures for each size of the system's small icons that it has some for.
STRIPS = {16: "serverview.bmp", 20: "serverview20.bmp", 24: "serverview24.bmp"}


def save_in_16_colours(image, path):
    """As a bitmap of four bits a pixel, which Pillow does not write."""
    colours = [colour for _, colour in sorted(image.getcolors(16), key=lambda counted: counted[1])]
    rows = []
    for y in reversed(range(image.height)):
        numbers = [colours.index(image.getpixel((x, y))) for x in range(image.width)]
        numbers += [0] * (-len(numbers) % 8)
        rows.append(bytes(left << 4 | right for left, right in zip(numbers[::2], numbers[1::2])))
    palette = b"".join(bytes((blue, green, red, 0)) for red, green, blue in colours)
    pixels = b"".join(rows)
    start = 14 + 40 + len(palette)
    path.write_bytes(struct.pack("<2sIHHI", b"BM", start + len(pixels), 0, 0, start)
                     + struct.pack("<IiiHHIIiiII", 40, image.width, image.height, 1, 4, 0, len(pixels), 0, 0,
                                   len(colours), 0)
                     + palette + pixels)


def main():
    for size, file in STRIPS.items():
        strip = Image.new("RGB", (size * len(PICTURES), size), MASK)
        for place, (picture, *state) in enumerate(PICTURES):
            strip.paste(picture(size, *state), (size * place, 0))
        save_in_16_colours(strip, HERE / file)
    for number, face in FACES.items():
        face().save(HERE / f"face{number}.bmp")
    icon().save(HERE / "about.ico", sizes=[(16, 16), (32, 32)], bitmap_format="bmp")  # XP reads no other
    welcome().save(HERE / "welcome.gif")


if __name__ == "__main__":
    main()
