#!/usr/bin/python3
# Generates the artwork of the Windows program: the stock skins, the example extra skin,
# the program icon and the About banner, all drawn from the DejaVu chess glyphs.
"""Run from anywhere: /usr/bin/python3 tools/make_skins.py [--preview DIR]

Needs Pillow (Debian: python3-pil) and the DejaVu fonts (Debian: fonts-dejavu-core).
The output is the same on every run: all randomness comes from generators seeded by name.
"""

import argparse
import math
import random
import struct
import sys
from dataclasses import dataclass
from pathlib import Path

from PIL import Image, ImageChops, ImageDraw, ImageFilter, ImageFont

ROOT = Path(__file__).resolve().parent.parent
RESOURCES = ROOT / "resources"
FONT_DIR = Path("/usr/share/fonts/truetype/dejavu")
GLYPH_FONT = FONT_DIR / "DejaVuSans.ttf"
WORDMARK_FONT = FONT_DIR / "DejaVuSerif-Bold.ttf"
CAPTION_FONT = FONT_DIR / "DejaVuSans.ttf"
FONT_COPYRIGHT = Path("/usr/share/doc/fonts-dejavu-core/copyright")

TILE = 64
COLUMNS, ROWS = 10, 7
SS = 4  # supersampling factor: shapes are drawn this much larger, then reduced
BIG = TILE * SS

PAWN, KNIGHT, BISHOP, ROOK, QUEEN, KING = 1, 2, 3, 4, 5, 6
BLACK_OFFSET = 5  # tile columns between a white piece and the same square with a black one
WORDMARK = "Velok-3"

# Height of each piece as a share of the tile. The font draws all six equally tall, which
# makes a pawn look like a king; these follow the proportions of a tournament set.
PIECE_HEIGHT = {PAWN: 0.60, KNIGHT: 0.74, BISHOP: 0.78, ROOK: 0.68, QUEEN: 0.80, KING: 0.83}
BASELINE = 0.895  # where the foot of every piece stands, as a share of the tile


def SolidGlyph(piece):
    """Code point of the filled (black) chess glyph of a piece code."""
    return chr(0x2660 - piece)


# ---------------------------------------------------------------------------------------------
# Colour helpers


def Mix(a, b, t):
    """Colour a moved the share t towards colour b."""
    return tuple(int(round(x + (y - x) * t)) for x, y in zip(a, b))


def Solid(size, colour):
    """An RGB image of one colour."""
    return Image.new("RGB", size, colour)


def Ramp(mask, low, high):
    """An RGB image that shows low where mask is 0 and high where it is 255."""
    return Image.composite(Solid(mask.size, high), Solid(mask.size, low), mask)


def Layer(size, colour, mask):
    """An RGBA image of one colour, opaque where mask says."""
    layer = Image.new("RGBA", size, colour + (0,))
    layer.putalpha(mask)
    return layer


def Scale(mask, factor):
    """Mask values multiplied by factor (0 to 1)."""
    return mask.point(lambda v: int(v * factor))


def VerticalGradient(size, top, bottom):
    ramp = Image.linear_gradient("L").resize(size, Image.BILINEAR)
    return Ramp(ramp, top, bottom)


# ---------------------------------------------------------------------------------------------
# Textures of the squares. Each returns an L image whose value chooses between the two shades
# of a square colour; they are made at tile size, where grain needs no smoothing.


def ValueNoise(rng, size, cells_x, cells_y):
    """Smooth noise: a small grid of random values enlarged with bicubic filtering."""
    grid = bytes(rng.randrange(256) for _ in range(cells_x * cells_y))
    return Image.frombytes("L", (cells_x, cells_y), grid).resize(size, Image.BICUBIC)


def Grain(rng, size, blur):
    """Per-pixel noise, slightly softened."""
    data = bytes(rng.randrange(256) for _ in range(size[0] * size[1]))
    return Image.frombytes("L", size, data).filter(ImageFilter.GaussianBlur(blur))


def FlatTexture(rng, size):
    """No texture: the square takes the middle of its shade pair."""
    return Image.new("L", size, 128)


def WoodTexture(rng, size):
    """Growth rings cut lengthwise: light early wood, thin dark late wood, fine fibres along x."""
    w, h = size
    bend = ValueNoise(rng, size, 2, 3).getdata()
    ripple = ValueNoise(rng, size, 3, h * 3 // 4).getdata()
    fibres = ValueNoise(rng, size, 6, h).getdata()
    period = rng.uniform(5.5, 7.5) * h / TILE
    phase = rng.uniform(0, 1)
    out = []
    for y in range(h):
        for x in range(w):
            i = y * w + x
            d = y + (bend[i] - 128) / 128 * 0.16 * h + (ripple[i] - 128) / 128 * 0.02 * h
            f = (d / period + phase) % 1.0
            late = max(0.0, (f - 0.72) / 0.28) ** 1.5
            v = 0.70 * (1 - late) + 0.30 * fibres[i] / 255
            out.append(max(0, min(255, int(255 * v))))
    return Image.frombytes("L", size, bytes(out))


def PaperTexture(rng, size):
    """Fine tooth of paper over wide stains, a little darker towards the edges."""
    w, h = size
    stains = ValueNoise(rng, size, 4, 4).getdata()
    tooth = Grain(rng, size, 0.5).getdata()
    out = []
    for y in range(h):
        for x in range(w):
            i = y * w + x
            dx, dy = (x - w / 2) / (w / 2), (y - h / 2) / (h / 2)
            edge = max(0.0, (dx * dx + dy * dy) ** 0.5 - 0.65) * 60
            v = 0.55 * stains[i] + 0.45 * tooth[i] - edge
            out.append(max(0, min(255, int(v))))
    return Image.frombytes("L", size, bytes(out))


def MarbleTexture(rng, size):
    """Cloudy stone crossed by a few bold veins and a finer web of thin ones."""
    w, h = size
    cloud = ValueNoise(rng, size, 4, 4).getdata()
    bold = [ValueNoise(rng, size, n, n).getdata() for n in (2, 4, 8)]
    thin = [ValueNoise(rng, size, n, n).getdata() for n in (5, 10)]
    angle = rng.uniform(0.6, 1.0)
    ca, sa = math.cos(angle), math.sin(angle)
    out = []
    for y in range(h):
        for x in range(w):
            i = y * w + x
            u, v = x * TILE / w, y * TILE / h
            t1 = sum((o[i] - 128) / 128 / 2**k for k, o in enumerate(bold))
            t2 = sum((o[i] - 128) / 128 / 2**k for k, o in enumerate(thin))
            s1 = abs(math.sin((u * ca + v * sa) * 0.05 + t1 * 2.5))
            s2 = abs(math.sin((u * sa - v * ca) * 0.115 + t2 * 3.75))
            vein = 0.65 * s1**0.2 + 0.35 * s2**0.12
            out.append(int(255 * (0.72 * vein + 0.28 * cloud[i] / 255)))
    return Image.frombytes("L", size, bytes(out))


def LinenTexture(rng, size):
    """A faint woven cross-hatch, for the plainer skins."""
    weft = ValueNoise(rng, size, 2, size[1]).getdata()
    warp = ValueNoise(rng, size, size[0], 2).getdata()
    return Image.frombytes("L", size, bytes((a + b) // 2 for a, b in zip(weft, warp)))


TEXTURES = {
    "flat": FlatTexture,
    "wood": WoodTexture,
    "paper": PaperTexture,
    "marble": MarbleTexture,
    "linen": LinenTexture,
}


# ---------------------------------------------------------------------------------------------
# Skin themes


@dataclass
class Theme:
    name: str
    file: str
    texture: str
    dark: tuple  # (shade where the texture is low, shade where it is high)
    light: tuple
    target: tuple  # colours the marked squares are tinted towards
    alert: tuple
    last_move: tuple
    tint: float  # how far a marked square moves towards its tint colour
    white_fill: tuple  # (top, bottom) of the body of a white piece
    white_line: tuple
    black_fill: tuple  # (top, bottom) of the body of a black piece
    black_line: tuple  # inner details of a black piece
    black_rim: tuple  # halo that keeps a black piece apart from a dark square
    line_width: float = 1.4  # outline of a white piece, in pixels of the tile
    rim_width: float = 1.0
    shadow: float = 0.35  # opacity of the shadow a piece casts; 0 for flat styles
    plaque: tuple = ((60, 40, 28), (40, 26, 18))  # logo background, top and bottom
    plaque_ink: tuple = (240, 226, 196)
    plaque_accent: tuple = (200, 160, 100)
    marked_frame: float = 0.0  # strength of an inner frame that outlines marked squares
    marked_base: float = 0.5  # marked squares start this far from the dark shade to the light


THEMES = [
    Theme(
        name="1. Book", file="skin1", texture="wood",
        dark=((164, 112, 72), (186, 134, 90)), light=((232, 208, 168), (244, 226, 192)),
        target=(60, 130, 230), alert=(222, 70, 52), last_move=(150, 200, 60), tint=0.55,
        marked_base=0.55,
        white_fill=((255, 252, 244), (232, 224, 206)), white_line=(38, 28, 22),
        black_fill=((70, 60, 54), (22, 18, 16)), black_line=(196, 184, 168),
        black_rim=(246, 236, 216),
        plaque=((96, 62, 38), (62, 38, 22)), plaque_ink=(250, 238, 214),
        plaque_accent=(228, 190, 130),
    ),
    Theme(
        name="2. Classic", file="skin2", texture="linen",
        dark=((108, 142, 88), (118, 152, 96)), light=((234, 234, 206), (242, 240, 214)),
        target=(70, 130, 230), alert=(230, 70, 60), last_move=(206, 222, 60), tint=0.55,
        white_fill=((255, 255, 255), (236, 236, 230)), white_line=(30, 30, 30),
        black_fill=((66, 66, 66), (20, 20, 20)), black_line=(200, 200, 196),
        black_rim=(250, 250, 244), shadow=0.30,
        plaque=((70, 100, 60), (46, 70, 40)), plaque_ink=(246, 244, 222),
        plaque_accent=(214, 226, 170),
    ),
    Theme(
        name="3. Old", file="skin3", texture="paper",
        dark=((132, 96, 60), (168, 130, 88)), light=((212, 190, 146), (240, 224, 188)),
        target=(60, 105, 180), alert=(180, 56, 36), last_move=(118, 154, 50), tint=0.50,
        marked_base=0.55,
        white_fill=((250, 240, 214), (226, 208, 170)), white_line=(58, 38, 22),
        black_fill=((82, 58, 40), (36, 24, 16)), black_line=(206, 184, 144),
        black_rim=(240, 226, 190), line_width=1.5,
        plaque=((120, 88, 54), (84, 58, 34)), plaque_ink=(246, 232, 196),
        plaque_accent=(226, 196, 140),
    ),
    Theme(
        name="4. Bright", file="skin4", texture="flat",
        dark=((242, 146, 74), (242, 146, 74)), light=((255, 240, 206), (255, 240, 206)),
        target=(40, 140, 255), alert=(240, 40, 80), last_move=(120, 210, 60), tint=0.60,
        marked_base=0.75,
        white_fill=((255, 255, 255), (255, 255, 255)), white_line=(28, 36, 72),
        black_fill=((44, 54, 96), (24, 30, 60)), black_line=(190, 204, 240),
        black_rim=(255, 255, 255), shadow=0.25,
        plaque=((40, 52, 96), (24, 32, 66)), plaque_ink=(255, 255, 255),
        plaque_accent=(255, 180, 90), marked_frame=0.5,
    ),
    Theme(
        name="5. Modern", file="skin5", texture="flat",
        dark=((120, 134, 152), (120, 134, 152)), light=((224, 228, 234), (224, 228, 234)),
        target=(40, 120, 250), alert=(236, 72, 72), last_move=(70, 200, 130), tint=0.55,
        white_fill=((255, 255, 255), (255, 255, 255)), white_line=(36, 40, 48),
        black_fill=((44, 48, 56), (44, 48, 56)), black_line=(176, 184, 196),
        black_rim=(250, 252, 255), line_width=1.2, shadow=0.0,
        plaque=((52, 58, 70), (52, 58, 70)), plaque_ink=(244, 246, 250),
        plaque_accent=(120, 170, 250), marked_frame=0.5,
    ),
    Theme(
        name="6. Desk", file="skin6", texture="wood",
        dark=((84, 48, 30), (108, 64, 40)), light=((170, 120, 76), (194, 142, 94)),
        target=(60, 120, 230), alert=(214, 56, 40), last_move=(130, 184, 50), tint=0.50,
        marked_base=0.45,
        white_fill=((255, 248, 232), (226, 212, 184)), white_line=(34, 22, 14),
        black_fill=((62, 50, 44), (16, 12, 10)), black_line=(176, 156, 136),
        black_rim=(236, 214, 182), shadow=0.45,
        plaque=((58, 32, 20), (34, 18, 10)), plaque_ink=(240, 222, 190),
        plaque_accent=(206, 160, 100),
    ),
    Theme(
        name="7. Clear", file="skin7", texture="flat",
        dark=((200, 208, 218), (200, 208, 218)), light=((250, 251, 252), (250, 251, 252)),
        target=(90, 160, 250), alert=(250, 110, 110), last_move=(130, 220, 140), tint=0.40,
        white_fill=((255, 255, 255), (255, 255, 255)), white_line=(46, 52, 62),
        black_fill=((74, 80, 90), (60, 64, 74)), black_line=(220, 226, 234),
        black_rim=(255, 255, 255), line_width=1.25, shadow=0.0,
        plaque=((236, 240, 245), (236, 240, 245)), plaque_ink=(60, 66, 76),
        plaque_accent=(90, 160, 250), marked_frame=0.6,
    ),
]

EXTRA_THEMES = [
    Theme(
        name="Marble", file="extra/Marble", texture="marble",
        dark=((150, 180, 168), (64, 92, 84)), light=((186, 186, 184), (246, 245, 242)),
        target=(70, 130, 220), alert=(210, 64, 60), last_move=(150, 200, 90), tint=0.45,
        white_fill=((255, 255, 255), (230, 230, 226)), white_line=(32, 36, 36),
        black_fill=((58, 62, 62), (16, 18, 18)), black_line=(196, 204, 200),
        black_rim=(248, 248, 244), shadow=0.40,
        plaque=((60, 84, 76), (34, 52, 46)), plaque_ink=(244, 244, 238),
        plaque_accent=(190, 214, 200),
    ),
]


# ---------------------------------------------------------------------------------------------
# Pieces


def GlyphMask(piece, box):
    """The filled glyph of a piece, scaled to its share of a box-sized tile, foot on the baseline."""
    height = PIECE_HEIGHT[piece] * box
    probe = ImageFont.truetype(str(GLYPH_FONT), 1000)
    l, t, r, b = probe.getmask(SolidGlyph(piece)).getbbox()
    font = ImageFont.truetype(str(GLYPH_FONT), int(round(1000 * height / (b - t))))
    glyph = font.getmask(SolidGlyph(piece))
    mask = Image.new("L", glyph.size)
    mask.putdata(list(glyph))
    mask = mask.crop(mask.getbbox())
    tile = Image.new("L", (box, box), 0)
    tile.paste(mask, ((box - mask.width) // 2, int(BASELINE * box) - mask.height))
    return tile


def Grow(mask, radius):
    """The mask widened by radius pixels."""
    return mask.filter(ImageFilter.MaxFilter(2 * radius + 1)) if radius > 0 else mask


def Shrink(mask, radius):
    """The mask narrowed by radius pixels."""
    return mask.filter(ImageFilter.MinFilter(2 * radius + 1)) if radius > 0 else mask


def Silhouette(glyph):
    """The outer shape of a glyph with its inner openings closed."""
    shape = glyph.point(lambda v: 255 if v >= 100 else 0)
    ImageDraw.floodfill(shape, (0, 0), 128)
    shape = shape.point(lambda v: 0 if v == 128 else 255)
    return shape.filter(ImageFilter.GaussianBlur(SS * 0.25)).point(lambda v: 255 if v >= 128 else 0)


def PieceImage(theme, piece, white, box=TILE):
    """A piece on a transparent tile of side box, with its shadow, drawn large and reduced."""
    big = box * SS
    glyph = GlyphMask(piece, big)
    body = Silhouette(glyph)
    details = ImageChops.subtract(body, glyph)
    scale = big / BIG  # line widths follow the size of the tile
    image = Image.new("RGBA", (big, big), (0, 0, 0, 0))
    if theme.shadow > 0:
        blur = body.filter(ImageFilter.GaussianBlur(5 * SS * scale))
        offset = int(round(1.5 * SS * scale))
        shade = Scale(ImageChops.offset(blur, offset, offset), theme.shadow)
        image = Image.alpha_composite(image, Layer(image.size, (0, 0, 0), shade))
    fill = theme.white_fill if white else theme.black_fill
    shaded = VerticalGradient(image.size, *fill).convert("RGBA")
    if white:
        edge = ImageChops.subtract(body, Shrink(body, int(round(theme.line_width * SS * scale))))
        shaded.putalpha(body)
        image = Image.alpha_composite(image, shaded)
        image = Image.alpha_composite(image, Layer(image.size, theme.white_line, edge))
        image = Image.alpha_composite(image, Layer(image.size, theme.white_line, details))
    else:
        rim = ImageChops.subtract(Grow(body, int(round(theme.rim_width * SS * scale))), body)
        image = Image.alpha_composite(image, Layer(image.size, theme.black_rim, rim))
        shaded.putalpha(body)
        image = Image.alpha_composite(image, shaded)
        image = Image.alpha_composite(image, Layer(image.size, theme.black_line, details))
    return image.resize((box, box), Image.LANCZOS)


# ---------------------------------------------------------------------------------------------
# Squares


def SquareImage(theme, rng, shades):
    """One square of a shade pair, its texture made at twice the size so fine lines stay smooth."""
    mask = TEXTURES[theme.texture](rng, (2 * TILE, 2 * TILE))
    return Ramp(mask, *shades).resize((TILE, TILE), Image.LANCZOS)


def MarkedSquare(theme, dark, light, tint):
    """A square between the dark and the light shade, tinted towards one marking colour."""
    base = Image.blend(dark, light, theme.marked_base)
    marked = Image.blend(base, Solid(base.size, tint), theme.tint)
    if theme.marked_frame > 0:
        frame = Image.new("L", base.size, 0)
        ImageDraw.Draw(frame).rectangle((0, 0, TILE - 1, TILE - 1), outline=255, width=3)
        deep = Image.blend(marked, Solid(base.size, Mix(tint, (0, 0, 0), 0.15)), theme.marked_frame)
        marked = Image.composite(deep, marked, frame)
    return marked


def SquareImages(theme):
    """The five backgrounds: dark, light, target, alert and last move."""
    rng = random.Random(theme.name)
    dark = SquareImage(theme, rng, theme.dark)
    light = SquareImage(theme, rng, theme.light)
    marks = [MarkedSquare(theme, dark, light, t) for t in (theme.target, theme.alert, theme.last_move)]
    return [dark, light] + marks


# ---------------------------------------------------------------------------------------------
# Logo


def FitFont(path, text, width, height):
    """The largest size of a font at which text fits the box."""
    size = height
    while size > 6:
        font = ImageFont.truetype(str(path), size)
        l, t, r, b = font.getbbox(text)
        if r - l <= width and b - t <= height:
            return font
        size -= 1
    return ImageFont.truetype(str(path), size)


def DrawText(draw, centre, text, font, fill):
    """Text with the middle of its ink at centre."""
    l, t, r, b = font.getbbox(text)
    draw.text((centre[0] - (l + r) / 2, centre[1] - (t + b) / 2), text, font=font, fill=fill)


def Plaque(theme, size, radius):
    """A rounded panel in the skin's logo colours, drawn large."""
    w, h = size
    panel = VerticalGradient(size, *theme.plaque).convert("RGBA")
    shape = Image.new("L", size, 0)
    ImageDraw.Draw(shape).rounded_rectangle((0, 0, w - 1, h - 1), radius=radius, fill=255)
    panel.putalpha(shape)
    inset = int(3 * SS)
    ring = Image.new("L", size, 0)
    ImageDraw.Draw(ring).rounded_rectangle(
        (inset, inset, w - 1 - inset, h - 1 - inset), radius=max(1, radius - inset),
        outline=255, width=SS)
    return Image.alpha_composite(panel, Layer(size, theme.plaque_accent, Scale(ring, 0.55)))


def LogoImage(theme):
    """The 128 by 64 block of the logo: a knight beside the wordmark on a plaque."""
    w, h = 2 * TILE, TILE
    back = Image.new("RGBA", (w * SS, h * SS), theme.plaque[1] + (255,))
    back = Image.alpha_composite(back, Plaque(theme, back.size, 8 * SS))
    draw = ImageDraw.Draw(back)
    font = FitFont(WORDMARK_FONT, WORDMARK, 64 * SS, 22 * SS)
    DrawText(draw, (87 * SS, 29 * SS), WORDMARK, font, theme.plaque_ink)
    small = FitFont(CAPTION_FONT, "C H E S S", 44 * SS, 7 * SS)
    DrawText(draw, (87 * SS, 45 * SS), "C H E S S", small, theme.plaque_accent)
    logo = back.resize((w, h), Image.LANCZOS)
    knight = PieceImage(theme, KNIGHT, True, 48)
    logo.alpha_composite(knight, (5, 6))
    return logo.convert("RGB")


# ---------------------------------------------------------------------------------------------
# Skin sheet


def SkinImage(theme):
    """The whole 640 by 448 skin: squares in row 0, pieces below, logo at (320, 0)."""
    sheet = Image.new("RGB", (COLUMNS * TILE, ROWS * TILE), theme.plaque[1])
    squares = SquareImages(theme)
    for column, square in enumerate(squares):
        sheet.paste(square, (column * TILE, 0))
    for piece in range(PAWN, KING + 1):
        for white in (True, False):
            image = PieceImage(theme, piece, white)
            for column, square in enumerate(squares):
                tile = square.convert("RGBA")
                tile.alpha_composite(image)
                x = (column + (0 if white else BLACK_OFFSET)) * TILE
                sheet.paste(tile.convert("RGB"), (x, piece * TILE))
    sheet.paste(LogoImage(theme), (BLACK_OFFSET * TILE, 0))
    return sheet


# ---------------------------------------------------------------------------------------------
# Icon and About banner


def IconImage(size):
    """The program icon at one size: a white knight on a rounded two-tone square."""
    theme = THEMES[0]
    big = size * 8
    image = Image.new("RGBA", (big, big), (0, 0, 0, 0))
    radius = big // 5
    shape = Image.new("L", (big, big), 0)
    ImageDraw.Draw(shape).rounded_rectangle((0, 0, big - 1, big - 1), radius=radius, fill=255)
    board = VerticalGradient((big, big), (150, 98, 60), (104, 64, 38)).convert("RGBA")
    if size >= 32:
        # Two light quarters make the square read as a board.
        half = big // 2
        light = VerticalGradient((half, half), (240, 220, 182), (226, 200, 158))
        board.paste(light, (half, 0))
        board.paste(light, (0, half))
    board.putalpha(shape)
    image = Image.alpha_composite(image, board)
    border = Image.new("L", (big, big), 0)
    ImageDraw.Draw(border).rounded_rectangle(
        (0, 0, big - 1, big - 1), radius=radius, outline=255, width=max(4, big // 40))
    image = Image.alpha_composite(image, Layer(image.size, (54, 32, 18), border))
    icon = image.resize((size, size), Image.LANCZOS)
    # The knight fills more of a small icon, with an outline of about one pixel at every size.
    grown = int(round(size * (1.3 if size <= 16 else 1.12)))
    outline = (0.8 if size <= 16 else 1.05) * TILE / grown
    look = Theme(**{**theme.__dict__, "line_width": outline, "shadow": 0.5})
    knight = PieceImage(look, KNIGHT, True, grown)
    left = (grown - size) // 2
    top = left + (1 if size <= 16 else 0)  # keeps the ears inside the smallest icon
    icon.alpha_composite(knight.crop((left, top, left + size, top + size)))
    return icon


def AboutImage():
    """The 203 by 61 banner of the About dialog."""
    theme = THEMES[0]
    w, h = 203, 61
    back = Image.new("RGBA", (w * SS, h * SS), theme.plaque[1] + (255,))
    back = Image.alpha_composite(back, Plaque(theme, back.size, 6 * SS))
    draw = ImageDraw.Draw(back)
    font = FitFont(WORDMARK_FONT, WORDMARK, 108 * SS, 28 * SS)
    DrawText(draw, (138 * SS, 26 * SS), WORDMARK, font, theme.plaque_ink)
    caption = "C H E S S   F O R   W I N D O W S"
    small = FitFont(CAPTION_FONT, caption, 108 * SS, 8 * SS)
    DrawText(draw, (138 * SS, 45 * SS), caption, small, theme.plaque_accent)
    banner = back.resize((w, h), Image.LANCZOS)
    banner.alpha_composite(PieceImage(theme, KING, True, 54), (6, 3))
    banner.alpha_composite(PieceImage(theme, KNIGHT, False, 50), (36, 8))
    return banner.convert("RGB")


def WriteIcon(path, images):
    """An ICO file of 32-bit images, each stored as a bottom-up DIB with its AND mask."""
    entries, blobs = [], []
    offset = 6 + 16 * len(images)
    for image in images:
        w, h = image.size
        pixels = image.convert("RGBA").transpose(Image.FLIP_TOP_BOTTOM)
        r, g, b, a = pixels.split()
        xor = Image.merge("RGBA", (b, g, r, a)).tobytes()
        stride = ((w + 31) // 32) * 4
        bits = a.point(lambda v: 255 if v == 0 else 0).convert("1").tobytes()
        row = (w + 7) // 8
        mask = b"".join(bits[y * row:(y + 1) * row].ljust(stride, b"\0") for y in range(h))
        header = struct.pack("<IiiHHIIiiII", 40, w, 2 * h, 1, 32, 0, len(xor) + len(mask), 0, 0, 0, 0)
        blob = header + xor + mask
        entries.append(struct.pack("<BBBBHHII", w % 256, h % 256, 0, 0, 1, 32, len(blob), offset))
        blobs.append(blob)
        offset += len(blob)
    path.write_bytes(struct.pack("<HHH", 0, 1, len(images)) + b"".join(entries) + b"".join(blobs))


ARTWORK_NOTICE = """\
Artwork of Velok-3
==================

The stock skins (skin1.bmp to skin7.bmp), the example skin extra/Marble.bmp, the program
icon (velok3.ico) and the About banner (about.bmp) are generated by tools/make_skins.py.
Nothing in them is copied from another program: the squares, textures, colours and layout
are computed by that script, and the images are the project's own work, distributed with it
under the project's terms. Run the script again to rebuild them; it gives the same files
on every run.

The shapes of the chess pieces and the lettering are drawn from glyphs of the DejaVu fonts
(DejaVu Sans, the filled pieces U+265A to U+265F, and DejaVu Serif Bold), rendered, filled and outlined by the
script. The fonts themselves are not included. Their copyright notice and licence follow.

DejaVu fonts: https://dejavu-fonts.github.io/

"""


def FontLicence():
    """The copyright stanza of the fonts, as their Debian package states it."""
    text = FONT_COPYRIGHT.read_text(encoding="utf-8")
    stanza = text.split("\nFiles: *\n", 1)[1].split("\n\nFiles:", 1)[0]
    lines = []
    for line in stanza.splitlines():
        line = line.rstrip()
        if line.startswith(" "):
            line = "" if line.strip() == "." else line[1:]
        lines.append(line)
    return "\n".join(lines) + "\n"


def WriteNotice(path):
    path.write_text(ARTWORK_NOTICE + FontLicence(), encoding="utf-8", newline="\n")


def WriteBitmap(path, image):
    """A 24-bit uncompressed BMP."""
    path.parent.mkdir(parents=True, exist_ok=True)
    image.convert("RGB").save(path, format="BMP")


# ---------------------------------------------------------------------------------------------
# Previews, for looking at the artwork as a player sees it


START_ROWS = ["RNBQKBNR", "PPPPPPPP", "", "", "", "", "pppppppp", "rnbqkbnr"]
PIECE_LETTERS = {"P": PAWN, "N": KNIGHT, "B": BISHOP, "R": ROOK, "Q": QUEEN, "K": KING}


def PreviewBoard(sheet):
    """The main window at scale 100 after 1. e4 e5 2. Nf3, with Black's knight picked up;
    the skin at half size in the corner, as the dialogs show it."""
    cells = {}
    for row, text in enumerate(START_ROWS):
        for file, letter in enumerate(text):
            cells[(file, row)] = (PIECE_LETTERS[letter.upper()], letter.islower())
    for a, b in [((4, 1), (4, 3)), ((4, 6), (4, 4)), ((6, 0), (5, 2))]:
        cells[b] = cells.pop(a)
    last = {(6, 0), (5, 2)}
    picked, targets = (1, 7), {(0, 5), (2, 5)}
    window = Image.new("RGB", (700, 552), (128, 128, 128))
    for i in range(8):
        for j in range(8):
            file, row = j, 7 - i
            piece, black = cells.get((file, row), (0, False))
            column = 1 if (i + j) % 2 == 0 else 0
            if (file, row) in last:
                column = 4
            if (file, row) == picked:
                column = 3
            if (file, row) in targets:
                column = 2
            if piece and black:
                column += BLACK_OFFSET
            tile = sheet.crop((column * TILE, piece * TILE, (column + 1) * TILE, (piece + 1) * TILE))
            window.paste(tile, (20 + j * TILE, 20 + i * TILE))
    window.paste(sheet.crop((320, 0, 448, 64)), (552, 20))
    half = sheet.resize((320, 224), Image.LANCZOS)
    window.paste(half.crop((0, 0, 320, 224)).resize((160, 112)), (536, 420))
    return window


def WritePreviews(directory, sheets, icons, about):
    """PNG pictures of every skin sheet, a board made from each, the icons and the banner."""
    directory.mkdir(parents=True, exist_ok=True)
    for name, sheet in sheets:
        stem = name.split("/")[-1]
        sheet.save(directory / f"{stem}-sheet.png")
        PreviewBoard(sheet).save(directory / f"{stem}-board.png")
    sample = Image.new("RGBA", (360, 240), (240, 240, 240, 255))
    x = 10
    for icon in icons:
        sample.alpha_composite(icon, (x, 10))
        sample.alpha_composite(icon.resize((icon.width * 4, icon.height * 4), Image.NEAREST), (x, 70))
        x += icon.width * 4 + 10
    sample.save(directory / "icon.png")
    about.resize((about.width * 3, about.height * 3), Image.NEAREST).save(directory / "about-x3.png")
    about.save(directory / "about.png")


# ---------------------------------------------------------------------------------------------


def Main():
    """Writes all the artwork into resources/."""
    parser = argparse.ArgumentParser(description="Generate the skins, icon and About banner.")
    parser.add_argument("--preview", type=Path, help="also write PNG previews into this folder")
    args = parser.parse_args()

    sheets = []
    for theme in THEMES + EXTRA_THEMES:
        sheet = SkinImage(theme)
        WriteBitmap(RESOURCES / "skins" / f"{theme.file}.bmp", sheet)
        sheets.append((theme.file, sheet))
    icons = [IconImage(size) for size in (16, 32, 48)]
    WriteIcon(RESOURCES / "velok3.ico", icons)
    about = AboutImage()
    WriteBitmap(RESOURCES / "about.bmp", about)
    WriteNotice(RESOURCES / "skins" / "LICENSE-ARTWORK.txt")
    if args.preview:
        WritePreviews(args.preview, sheets, icons, about)
    return 0


if __name__ == "__main__":
    sys.exit(Main())
