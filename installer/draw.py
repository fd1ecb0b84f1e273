#!/usr/bin/env python3
"""Draws the installer's pictures. Run it after a change and commit what it writes; the package uses the files as they are.

Needs Pillow. The same version draws the same bytes.
"""
from pathlib import Path

from PIL import Image, ImageDraw, ImageFont

HERE = Path(__file__).resolve().parent
WHITE, BLACK, RED, BLUE, LIGHT, GREEN = (255, 255, 255), (0, 0, 0), (200, 32, 32), (0, 72, 160), (168, 208, 255), (0, 136, 56)
BOLD = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"
PLAIN = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"


def cylinder(draw, x, y, size, body, edge):
    draw.rectangle([x, y + size // 8, x + size, y + size - size // 8], fill=body)
    draw.ellipse([x, y + size - size // 4, x + size, y + size], fill=body, outline=edge)
    draw.rectangle([x + 1, y + size // 8, x + size - 1, y + size - size // 8], fill=body)
    for ring in range(3):
        top = y + ring * size // 4
        draw.ellipse([x, top, x + size, top + size // 4], fill=(210, 226, 248) if ring == 0 else body, outline=edge)
    for side in (x, x + size):
        draw.line([(side, y + size // 8), (side, y + size - size // 8)], fill=edge)


def night(width, height):
    image = Image.new("RGB", (width, height))
    draw = ImageDraw.Draw(image)
    for y in range(height):
        part = y / height
        draw.line([(0, y), (width, y)], fill=(int(16 + 24 * part), int(40 + 48 * part), int(88 + 72 * part)))
    return image, draw


def side():
    """Beside the first and the last page."""
    image, draw = night(164, 314)
    for index, (x, y, size) in enumerate([(66, 96, 76), (26, 140, 64), (84, 176, 56)]):
        shade = 150 + 30 * index
        cylinder(draw, x, y, size, (shade - 60, shade - 20, min(shade + 40, 255)), (230, 240, 255))
    draw.text((14, 18), "Rozel", font=ImageFont.truetype(BOLD, 32), fill=WHITE)
    draw.text((15, 56), "for Velk databases", font=ImageFont.truetype(PLAIN, 11), fill=(190, 212, 244))
    draw.rectangle([0, 262, 164, 314], fill=(232, 238, 248))
    draw.text((14, 270), "Velk Add-In", font=ImageFont.truetype(BOLD, 14), fill=(24, 48, 96))
    draw.text((14, 291), "for Visual Interdev", font=ImageFont.truetype(PLAIN, 11), fill=(64, 84, 120))
    return image.quantize(colors=200, dither=Image.Dither.NONE)


def header():
    """At the right of the other pages' heads, which are white."""
    image = Image.new("RGB", (150, 57), WHITE)
    draw = ImageDraw.Draw(image)
    for index, (x, y, size) in enumerate([(86, 8, 34), (108, 18, 30)]):
        shade = 160 + 40 * index
        cylinder(draw, x, y, size, (shade - 60, shade - 20, min(shade + 40, 255)), BLUE)
    return image.quantize(colors=64, dither=Image.Dither.NONE)


def icon(leaves):
    """The add-in's own with an arrow: into it, or out of it."""
    image = Image.new("RGBA", (64, 64))
    draw = ImageDraw.Draw(image)
    draw.rectangle([8, 14, 44, 50], fill=LIGHT, outline=BLUE)
    draw.ellipse([8, 42, 44, 58], fill=LIGHT, outline=BLUE, width=2)
    draw.rectangle([10, 14, 42, 50], fill=LIGHT)
    draw.ellipse([8, 6, 44, 22], fill=WHITE, outline=BLUE, width=2)
    arrow = [(42, 26), (50, 26), (50, 44), (58, 44), (46, 60), (34, 44), (42, 44)]
    if leaves:
        arrow = [(x, 86 - y) for x, y in arrow]
    draw.polygon(arrow, fill=RED if leaves else GREEN, outline=BLACK)
    return image


def main():
    side().save(HERE / "side.bmp")
    header().save(HERE / "header.bmp")
    icon(False).save(HERE / "setup.ico", sizes=[(16, 16), (32, 32), (48, 48)], bitmap_format="bmp")
    icon(True).save(HERE / "uninstall.ico", sizes=[(16, 16), (32, 32), (48, 48)], bitmap_format="bmp")


if __name__ == "__main__":
    main()
