# SPDX-FileCopyrightText: 2026 The TzAuto team
# SPDX-License-Identifier: GPL-3.0-or-later

"""Writes right-to-left forms as word-processor documents, with the standard library alone.

A form is a title, a few lines of its page header, and blocks. In every text {Name} stands for the merge field of that name, and
so do the marks around a part that the program leaves out when its fields say nothing: {If_Name}, {IfNot_Name} and {EndIf}.
The same form always gives the same bytes.
"""

import re
import uuid
import zipfile
from dataclasses import dataclass, field
from pathlib import Path
from xml.sax.saxutils import escape

MAIN = "http://schemas.openxmlformats.org/wordprocessingml/2006/main"
RELATIONS = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
PACKAGE = "http://schemas.openxmlformats.org/package/2006"
NAMESPACES = f'xmlns:w="{MAIN}" xmlns:r="{RELATIONS}"'
PROLOG = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'

LEFT_TO_RIGHT_MARK = "\N{LEFT-TO-RIGHT MARK}"

FONT = "Vazirmatn UI FD"
# Its cut that draws ASCII digits in Latin shape.
CODE_FONT = "Vazirmatn UI"
# What a computer without the embedded font takes instead.
FONT_SUBSTITUTES = "B Nazanin,Noto Naskh Arabic,Tahoma"

PAGE_WIDTH, PAGE_HEIGHT = 11906, 16838  # A4, in twentieths of a point
MARGIN = 850
TEXT_WIDTH = PAGE_WIDTH - 2 * MARGIN
ACCENT = "1F3864"
SHADE = "E9EDF4"
RULE = "8496B0"
FAINT = "595959"


@dataclass(frozen=True)
class Article:
    """The heading of an article, left out where none of these fields says anything."""

    text: str
    when: str = ""


@dataclass(frozen=True)
class Text:
    """A paragraph; a clause hangs under its own sign. Left out where none of the fields in when, or any in unless, says anything."""

    text: str
    sign: str = ""
    when: str = ""
    unless: str = ""
    stays_with_next: bool = False


@dataclass(frozen=True)
class Cell:
    """Label and value of one box of a grid, over so many of its columns. It goes with its fields, or with those in when."""

    label: str
    value: str
    span: int = 1
    when: str = ""
    always: bool = False


@dataclass(frozen=True)
class Grid:
    """Boxes under a caption bar (which may be missing); each row fills all columns."""

    columns: int
    rows: list
    caption: str = ""


@dataclass(frozen=True)
class Table:
    """A table with a header row; widths are parts of the text's width."""

    widths: list
    header: list
    rows: list
    when: str = ""
    unless: str = ""


@dataclass(frozen=True)
class Signatures:
    """One box per signer, with room to sign; a signer is the line above and the name below it."""

    signers: list


@dataclass(frozen=True)
class Form:
    title: str
    heading: list          # the dealership's lines, at the right of every page's header
    reference: list        # at its left
    blocks: list
    footer: str            # before the page number
    fields_left_to_right: frozenset = field(default_factory=frozenset)
    fields_of_codes: frozenset = field(default_factory=frozenset)


def fonts_of_runs(name):
    return f'<w:rFonts w:ascii="{name}" w:hAnsi="{name}" w:eastAsia="{name}" w:cs="{name}"/>'


def run_properties(left_to_right=False, bold=False, size=None, color=None, code=False):
    """Numbers and codes run left to right also in a Persian line; both take the font for complex scripts."""
    parts = [fonts_of_runs(CODE_FONT)] if code else []
    if bold:
        parts.append("<w:b/><w:bCs/>")
    if color:
        parts.append(f'<w:color w:val="{color}"/>')
    if size:
        parts.append(f'<w:sz w:val="{size}"/><w:szCs w:val="{size}"/>')
    parts.append("<w:cs/>" if left_to_right else "<w:rtl/>")
    return f"<w:rPr>{''.join(parts)}</w:rPr>"


def text_run(text, properties):
    return f'<w:r>{properties}<w:t xml:space="preserve">{escape(text)}</w:t></w:r>'


def field_runs(instruction, shown, properties):
    def mark(kind):
        return f'<w:r>{properties}<w:fldChar w:fldCharType="{kind}"/></w:r>'

    return (
        mark("begin")
        + f'<w:r>{properties}<w:instrText xml:space="preserve"> {instruction} </w:instrText></w:r>'
        + mark("separate")
        + text_run(shown, properties)
        + mark("end")
    )


def optional(text, when="", unless=""):
    """The text between the marks that the program looks for; fields are parted by blanks."""
    if when:
        text = f"{{If_{'_'.join(when.split())}}}{text}{{EndIf}}"
    if unless:
        text = f"{{IfNot_{'_'.join(unless.split())}}}{text}{{EndIf}}"
    return text


def fields_in(text):
    return re.findall(r"\{(?!If_|IfNot_|EndIf)([^}]+)\}", text)


class Writer:
    def __init__(self, form):
        self.form = form

    # --- Text ---

    def runs(self, text, **look):
        result = []
        for piece in re.split(r"(\{[^}]+\})", text):
            if piece.startswith("{"):
                name = piece[1:-1]
                left_to_right = name in self.form.fields_left_to_right
                properties = run_properties(left_to_right, code=name in self.form.fields_of_codes, **look)
                runs = field_runs(f"MERGEFIELD {name} \\* MERGEFORMAT", f"«{name}»", properties)
                # The marks keep the parts of a telephone or cheque number in their order behind a Persian label.
                mark = text_run(LEFT_TO_RIGHT_MARK, properties) if left_to_right else ""
                result.append(mark + runs + mark)
            elif piece:
                result.append(text_run(piece, run_properties(**look)))
        return "".join(result)

    def between_marks(self, content, when="", unless=""):
        begin, end = optional("\0", when, unless).split("\0")
        return self.runs(begin) + content + self.runs(end)

    def paragraph(self, content, style="", align="", keep_next=False):
        parts = []
        if style:
            parts.append(f'<w:pStyle w:val="{style}"/>')
        if keep_next:
            parts.append("<w:keepNext/>")
        parts.append("<w:bidi/>")
        if align:
            parts.append(f'<w:jc w:val="{align}"/>')
        return f"<w:p><w:pPr>{''.join(parts)}</w:pPr>{content}</w:p>"

    # --- Tables ---

    def cell(self, width, paragraphs, span=1, shade="", bottom=False):
        properties = f'<w:tcW w:w="{width}" w:type="dxa"/>'
        if span > 1:
            properties += f'<w:gridSpan w:val="{span}"/>'
        if shade:
            properties += f'<w:shd w:val="clear" w:color="auto" w:fill="{shade}"/>'
        properties += f'<w:vAlign w:val="{"bottom" if bottom else "center"}"/>'
        return f"<w:tc><w:tcPr>{properties}</w:tcPr>{paragraphs}</w:tc>"

    def row(self, cells, height=0, header=False):
        properties = "<w:cantSplit/>"
        if height:
            properties += f'<w:trHeight w:val="{height}" w:hRule="atLeast"/>'
        if header:
            properties += "<w:tblHeader/>"
        return f"<w:tr><w:trPr>{properties}</w:trPr>{''.join(cells)}</w:tr>"

    def table(self, widths, rows, borders=True):
        sides = ("top", "left", "bottom", "right", "insideH", "insideV")
        kind = f'w:val="single" w:sz="4" w:space="0" w:color="{RULE}"' if borders else 'w:val="nil"'
        lines = "".join(f"<w:{side} {kind}/>" for side in sides)
        grid = "".join(f'<w:gridCol w:w="{width}"/>' for width in widths)
        return (
            "<w:tbl><w:tblPr><w:bidiVisual/>"
            f'<w:tblW w:w="{sum(widths)}" w:type="dxa"/><w:jc w:val="center"/>'
            f'<w:tblBorders>{lines}</w:tblBorders><w:tblLayout w:type="fixed"/>'
            '<w:tblCellMar><w:top w:w="20" w:type="dxa"/><w:left w:w="85" w:type="dxa"/>'
            '<w:bottom w:w="20" w:type="dxa"/><w:right w:w="85" w:type="dxa"/></w:tblCellMar>'
            f"</w:tblPr><w:tblGrid>{grid}</w:tblGrid>{''.join(rows)}</w:tbl>"
        )

    # What stays of a table whose rows all leave: it must not part the heading before from the text behind.
    def gap(self):
        return self.paragraph("", "Gap", keep_next=True)

    # --- Blocks ---

    def grid(self, block):
        width = TEXT_WIDTH // block.columns
        rows = []
        if block.caption:
            caption = self.paragraph(self.runs(block.caption, bold=True, color=ACCENT), "Cell", keep_next=True)
            rows.append(self.row([self.cell(width * block.columns, caption, block.columns, SHADE)]))
        for cells in block.rows:
            spans = sum(cell.span for cell in cells)
            if spans != block.columns:
                raise ValueError(f"a row of {spans} columns in a grid of {block.columns}: {cells[0].label}")
            drawn = []
            for cell in cells:
                label = cell.label + ": " if cell.label else ""
                content = self.runs(label, size=17, color=FAINT) + self.runs(cell.value, bold=True)
                if not cell.always:
                    content = self.between_marks(content, cell.when or " ".join(fields_in(cell.value)))
                drawn.append(self.cell(width * cell.span, self.paragraph(content, "Cell"), cell.span))
            rows.append(self.row(drawn))
        return self.table([width] * block.columns, rows) + self.gap()

    def columns(self, block):
        total = sum(block.widths)
        widths = [TEXT_WIDTH * part // total for part in block.widths]

        def line(texts, header):
            look = {"bold": True, "color": ACCENT} if header else {}
            cells = [
                self.cell(width, self.paragraph(self.runs(text, **look), "Cell", "center"), shade=SHADE if header else "")
                for width, text in zip(widths, texts, strict=True)
            ]
            return self.row(cells, header=header)

        table = self.table(widths, [line(block.header, True)] + [line(row, False) for row in block.rows]) + self.gap()
        if not block.when:
            return table
        begin, end = optional("\0", block.when, block.unless).split("\0")
        return self.paragraph(self.runs(begin), "Gap") + table + self.paragraph(self.runs(end), "Gap")

    def signatures(self, block):
        width = TEXT_WIDTH // len(block.signers)
        above = [
            self.cell(
                width,
                self.paragraph(self.runs(line, bold=True, color=ACCENT), "Cell", "center", keep_next=True),
                shade=SHADE,
            )
            for line, _ in block.signers
        ]
        below = [
            self.cell(width, self.paragraph(self.runs(name), "Cell", "center"), bottom=True) for _, name in block.signers
        ]
        return self.table([width] * len(block.signers), [self.row(above), self.row(below, height=1500)])

    def block(self, block):
        if isinstance(block, Article):
            return self.paragraph(self.between_marks(self.runs(block.text), block.when), "Article", keep_next=True)
        if isinstance(block, Text):
            if block.sign:
                sign = self.runs(block.sign, bold=True) + "<w:r><w:tab/></w:r>"
                return self.paragraph(self.between_marks(sign + self.runs(block.text), block.when, block.unless), "Clause")
            content = self.between_marks(self.runs(block.text), block.when, block.unless)
            return self.paragraph(content, "Body", keep_next=block.stays_with_next)
        if isinstance(block, Grid):
            return self.grid(block)
        if isinstance(block, Table):
            return self.columns(block)
        return self.signatures(block)

    # --- Parts of the package ---

    def document(self):
        body = "".join(self.block(block) for block in self.form.blocks)
        # A document must not end in a table; this paragraph takes no room.
        body += self.paragraph("", "Gap")
        section = (
            '<w:sectPr><w:headerReference w:type="default" r:id="header"/>'
            '<w:footerReference w:type="default" r:id="footer"/>'
            f'<w:pgSz w:w="{PAGE_WIDTH}" w:h="{PAGE_HEIGHT}"/>'
            f'<w:pgMar w:top="1800" w:right="{MARGIN}" w:bottom="900" w:left="{MARGIN}"'
            ' w:header="500" w:footer="400" w:gutter="0"/><w:bidi/></w:sectPr>'
        )
        return f"{PROLOG}<w:document {NAMESPACES}><w:body>{body}{section}</w:body></w:document>"

    def header(self):
        form = self.form
        widths = [TEXT_WIDTH * part // 100 for part in (11, 37, 29, 23)]
        logo = self.paragraph(self.runs("{If_Logo}{Logo_16}{EndIf}"), "Cell")
        heading = self.paragraph(self.runs(form.heading[0], bold=True, size=24, color=ACCENT), "Cell")
        heading += "".join(self.paragraph(self.runs(line, size=16), "Cell") for line in form.heading[1:])
        title = self.paragraph(self.runs("به نام خدا", size=16), "Cell", "center")
        title += self.paragraph(self.runs(form.title, bold=True, size=26, color=ACCENT), "Cell", "center")
        reference = "".join(self.paragraph(self.runs(line, size=18), "Cell", "right") for line in form.reference)
        row = self.row([self.cell(width, text) for width, text in zip(widths, (logo, heading, title, reference), strict=True)])
        table = self.table(widths, [row], borders=False)
        line = self.paragraph("", "Line")
        return f"{PROLOG}<w:hdr {NAMESPACES}>{table}{line}{self.gap()}</w:hdr>"

    def footer(self):
        look = {"size": 16, "color": FAINT}
        number = run_properties(left_to_right=True, **look)
        content = (
            self.runs(self.form.footer + "    —    صفحه ", **look)
            + field_runs("PAGE", "1", number)
            + self.runs(" از ", **look)
            + field_runs("NUMPAGES", "2", number)
        )
        return f"{PROLOG}<w:ftr {NAMESPACES}>{self.paragraph(content, 'Cell', 'center')}</w:ftr>"


def style(identifier, name, paragraph, run=""):
    return (
        f'<w:style w:type="paragraph" w:customStyle="1" w:styleId="{identifier}"><w:name w:val="{name}"/>'
        f'<w:basedOn w:val="Normal"/><w:pPr>{paragraph}</w:pPr><w:rPr>{run}</w:rPr></w:style>'
    )


def styles():
    return (
        f"{PROLOG}<w:styles {NAMESPACES}><w:docDefaults><w:rPrDefault><w:rPr>{fonts_of_runs(FONT)}"
        '<w:sz w:val="20"/><w:szCs w:val="20"/><w:lang w:val="en-US" w:bidi="fa-IR"/></w:rPr></w:rPrDefault>'
        '<w:pPrDefault><w:pPr><w:spacing w:before="0" w:after="0" w:line="240" w:lineRule="auto"/></w:pPr></w:pPrDefault>'
        '</w:docDefaults><w:style w:type="paragraph" w:default="1" w:styleId="Normal"><w:name w:val="Normal"/>'
        '<w:pPr><w:bidi/></w:pPr></w:style>'
        + style(
            "Article",
            "Article heading",
            f'<w:keepNext/><w:pBdr><w:bottom w:val="single" w:sz="6" w:space="0" w:color="{RULE}"/></w:pBdr>'
            '<w:spacing w:before="80" w:after="60"/><w:outlineLvl w:val="0"/>',
            f'<w:b/><w:bCs/><w:color w:val="{ACCENT}"/><w:sz w:val="21"/><w:szCs w:val="21"/>',
        )
        + style("Body", "Contract text", '<w:spacing w:after="40"/><w:jc w:val="both"/>')
        + style(
            "Clause",
            "Contract clause",
            '<w:tabs><w:tab w:val="left" w:pos="450"/></w:tabs><w:spacing w:after="40"/><w:ind w:left="450" w:hanging="450"/><w:jc w:val="both"/>',
        )
        + style("Cell", "Form cell", "")
        + style("Gap", "Gap", '<w:spacing w:line="80" w:lineRule="exact"/>', '<w:sz w:val="4"/><w:szCs w:val="4"/>')
        + style(
            "Line",
            "Header line",
            f'<w:pBdr><w:bottom w:val="single" w:sz="12" w:space="0" w:color="{ACCENT}"/></w:pBdr>'
            '<w:spacing w:line="80" w:lineRule="exact"/>',
            '<w:sz w:val="4"/><w:szCs w:val="4"/>',
        )
        + "</w:styles>"
    )


def settings(embeds_fonts):
    embed = "<w:embedTrueTypeFonts/>" if embeds_fonts else ""
    return (
        f'{PROLOG}<w:settings {NAMESPACES}><w:zoom w:percent="100"/>{embed}'
        '<w:defaultTabStop w:val="720"/><w:compat><w:compatSetting w:name="compatibilityMode"'
        ' w:uri="http://schemas.microsoft.com/office/word" w:val="15"/></w:compat>'
        '<w:themeFontLang w:val="en-US" w:bidi="fa-IR"/></w:settings>'
    )


@dataclass(frozen=True)
class EmbeddedFont:
    name: str
    role: str  # Regular or Bold
    key: uuid.UUID
    data: bytes

    @property
    def identifier(self):
        return f"font{'' if self.name == FONT else 'Code'}{self.role}"

    @property
    def part(self):
        return f"fonts/{self.identifier}.odttf"


def embedded_fonts(folder):
    """The program's fonts as a document carries them: the first 32 bytes mixed with a key that the font table names."""
    fonts = []
    for name, role, file in (
        (FONT, "Regular", "Vazirmatn-UI-FD-Regular.ttf"),
        (FONT, "Bold", "Vazirmatn-UI-FD-Bold.ttf"),
        (CODE_FONT, "Regular", "codes/Vazirmatn-UI-Regular.ttf"),
        (CODE_FONT, "Bold", "codes/Vazirmatn-UI-Bold.ttf"),
    ):
        data = bytearray((Path(folder) / file).read_bytes())
        key = uuid.uuid5(uuid.NAMESPACE_URL, f"urn:tzauto:font:{file}")
        mask = key.bytes[::-1]
        for i in range(32):
            data[i] ^= mask[i % 16]
        fonts.append(EmbeddedFont(name, role, key, bytes(data)))
    return fonts


def font_table(fonts):
    def entry(name):
        embeds = "".join(
            f'<w:embed{font.role} r:id="{font.identifier}" w:fontKey="{{{str(font.key).upper()}}}"/>'
            for font in fonts
            if font.name == name
        )
        return (
            f'<w:font w:name="{name}"><w:altName w:val="{FONT_SUBSTITUTES}"/><w:charset w:val="B2"/>'
            f'<w:family w:val="auto"/><w:pitch w:val="variable"/>{embeds}</w:font>'
        )

    return f"{PROLOG}<w:fonts {NAMESPACES}>{entry(FONT)}{entry(CODE_FONT)}</w:fonts>"


def relations(targets):
    lines = "".join(
        f'<Relationship Id="{key}" Type="{kind}" Target="{target}"/>' for key, kind, target in targets
    )
    return f'{PROLOG}<Relationships xmlns="{PACKAGE}/relationships">{lines}</Relationships>'


def content_types(fonts):
    word = "application/vnd.openxmlformats-officedocument.wordprocessingml"
    defaults = {"rels": "application/vnd.openxmlformats-package.relationships+xml", "xml": "application/xml"}
    if fonts:
        defaults["odttf"] = "application/vnd.openxmlformats-officedocument.obfuscatedFont"
    parts = {
        "/word/document.xml": f"{word}.document.main+xml",
        "/word/styles.xml": f"{word}.styles+xml",
        "/word/settings.xml": f"{word}.settings+xml",
        "/word/fontTable.xml": f"{word}.fontTable+xml",
        "/word/header1.xml": f"{word}.header+xml",
        "/word/footer1.xml": f"{word}.footer+xml",
        "/docProps/core.xml": "application/vnd.openxmlformats-package.core-properties+xml",
    }
    lines = "".join(f'<Default Extension="{key}" ContentType="{value}"/>' for key, value in defaults.items())
    lines += "".join(f'<Override PartName="{key}" ContentType="{value}"/>' for key, value in parts.items())
    return f'{PROLOG}<Types xmlns="{PACKAGE}/content-types">{lines}</Types>'


def core_properties(title):
    return (
        f'{PROLOG}<cp:coreProperties xmlns:cp="{PACKAGE}/metadata/core-properties"'
        ' xmlns:dc="http://purl.org/dc/elements/1.1/">'
        f"<dc:title>{escape(title)}</dc:title><dc:creator>TzAuto</dc:creator><dc:language>fa-IR</dc:language>"
        "</cp:coreProperties>"
    )


def package(form, fonts):
    """All parts of the document, in the order in which they stand in the file."""
    writer = Writer(form)
    document = [("header", f"{RELATIONS}/header", "header1.xml"), ("footer", f"{RELATIONS}/footer", "footer1.xml")]
    document += [(name, f"{RELATIONS}/{name}", f"{name}.xml") for name in ("styles", "settings", "fontTable")]
    top = [
        ("document", f"{RELATIONS}/officeDocument", "word/document.xml"),
        ("core", f"{PACKAGE}/relationships/metadata/core-properties", "docProps/core.xml"),
    ]
    parts = {
        "[Content_Types].xml": content_types(fonts),
        "_rels/.rels": relations(top),
        "docProps/core.xml": core_properties(form.title),
        "word/document.xml": writer.document(),
        "word/_rels/document.xml.rels": relations(document),
        "word/header1.xml": writer.header(),
        "word/footer1.xml": writer.footer(),
        "word/styles.xml": styles(),
        "word/settings.xml": settings(bool(fonts)),
        "word/fontTable.xml": font_table(fonts),
    }
    if fonts:
        parts["word/_rels/fontTable.xml.rels"] = relations(
            [(font.identifier, f"{RELATIONS}/font", font.part) for font in fonts]
        )
        parts |= {f"word/{font.part}": font.data for font in fonts}
    return parts


def write(path, form, fonts):
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, data in package(form, fonts).items():
            entry = zipfile.ZipInfo(name, date_time=(1980, 1, 1, 0, 0, 0))
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            archive.writestr(entry, data)
