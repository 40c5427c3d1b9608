"""Workbooks with one sheet, as small as they can be: .xlsx, .ods, and .xls as programs since 1997
write it. A cell is a text, a number, a day, a moment, a time of day, or None."""

import io
import struct
import zipfile
from datetime import date, datetime, time
from xml.sax.saxutils import escape, quoteattr


def serial(cell) -> float | int:
    """Days since 30 December 1899, by which workbooks keep days and times."""
    if isinstance(cell, time):
        return (cell.hour * 3600 + cell.minute * 60 + cell.second) / 86400
    if isinstance(cell, datetime):
        return serial(cell.date()) + serial(cell.time())
    return (cell - date(1899, 12, 30)).days


def column_name(place: int) -> str:
    return (chr(64 + place // 26) if place >= 26 else "") + chr(65 + place % 26)


def package(parts: dict[str, str]) -> bytes:
    out = io.BytesIO()
    with zipfile.ZipFile(out, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in parts.items():
            archive.writestr(name, content)
    return out.getvalue()


STYLES = {date: 1, datetime: 2, time: 3}


def xlsx_cell(reference: str, cell) -> str:
    if isinstance(cell, str):
        return f'<c r="{reference}" t="inlineStr"><is><t>{escape(cell)}</t></is></c>'
    style = STYLES.get(type(cell), 0)
    value = serial(cell) if style else cell
    return f'<c r="{reference}" s="{style}"><v>{value!r}</v></c>'


def xlsx(rows: list[list]) -> bytes:
    cells = "".join(
        f'<row r="{number}">' + "".join(
            xlsx_cell(f"{column_name(place)}{number}", cell)
            for place, cell in enumerate(row) if cell not in ("", None)) + "</row>"
        for number, row in enumerate(rows, 1))
    main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
    relations = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
    return package({
        "[Content_Types].xml": "<Types/>",
        "xl/workbook.xml":
            f'<workbook xmlns="{main}" xmlns:r="{relations}"><sheets><sheet name="Equity" '
            'sheetId="1" r:id="rId1"/></sheets></workbook>',
        "xl/_rels/workbook.xml.rels":
            '<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
            f'<Relationship Id="rId1" Type="{relations}/worksheet" Target="worksheets/sheet1.xml"/>'
            '</Relationships>',
        "xl/styles.xml": f'<styleSheet xmlns="{main}"><cellXfs>' + "".join(
            f'<xf numFmtId="{form}" applyNumberFormat="1"/>' for form in (0, 14, 22, 21)) +
            "</cellXfs></styleSheet>",
        "xl/worksheets/sheet1.xml":
            f'<worksheet xmlns="{main}"><sheetData>{cells}</sheetData></worksheet>'})


def ods_cell(cell) -> str:
    if cell in ("", None):
        return "<table:table-cell/>"
    kind, value, shown = "float", f'office:value="{cell!r}"', str(cell)
    if isinstance(cell, str):
        kind, value = "string", ""
    elif isinstance(cell, time):
        kind, value = "time", f'office:time-value="{cell.strftime("PT%HH%MM%SS")}"'
    elif isinstance(cell, (date, datetime)):
        kind, value = "date", f"office:date-value={quoteattr(cell.isoformat())}"
    return (f'<table:table-cell office:value-type="{kind}" {value}><text:p>{escape(shown)}</text:p>'
            "</table:table-cell>")


def ods(rows: list[list]) -> bytes:
    spaces = "".join(f' xmlns:{name}="urn:oasis:names:tc:opendocument:xmlns:{name}:1.0"'
                     for name in ("office", "table", "text"))
    body = "".join("<table:table-row>" + "".join(map(ods_cell, row)) + "</table:table-row>"
                   for row in rows)
    return package({
        "mimetype": "application/vnd.oasis.opendocument.spreadsheet",
        "content.xml": f'<office:document-content{spaces}><office:body><office:spreadsheet>'
                       f'<table:table table:name="Equity">{body}</table:table></office:spreadsheet>'
                       "</office:body></office:document-content>"})


def record(kind: int, data: bytes) -> bytes:
    return struct.pack("<HH", kind, len(data)) + data


def xls_cell(row: int, column: int, cell) -> bytes:
    head = struct.pack("<HHH", row, column, 0)
    if isinstance(cell, str):
        text = cell.encode("utf-16-le")
        return record(0x204, head + struct.pack("<HB", len(text) // 2, 1) + text)
    return record(0x203, head + struct.pack("<d", serial(cell) if type(cell) in STYLES else cell))


def xls(rows: list[list]) -> bytes:
    begin = struct.pack("<HHHHII", 0x600, 5, 0, 0, 0, 0)
    sheet = record(0x809, begin[:2] + struct.pack("<H", 0x10) + begin[4:]) + b"".join(
        xls_cell(number, place, cell) for number, row in enumerate(rows)
        for place, cell in enumerate(row) if cell not in ("", None)) + record(0x0A, b"")
    name = b"Equity"
    boundary = struct.pack("<IHBB", 0, 0, len(name), 0) + name
    globals_size = len(record(0x809, begin) + record(0x85, boundary) + record(0x0A, b""))
    boundary = struct.pack("<I", globals_size) + boundary[4:]
    stream = record(0x809, begin) + record(0x85, boundary) + record(0x0A, b"") + sheet
    return compound(stream.ljust(4096, b"\0"))


def compound(stream: bytes) -> bytes:
    """The file around one stream, which is large enough to have sectors of its own."""
    size, last, free = 512, 0xFFFFFFFE, 0xFFFFFFFF
    count = -(-len(stream) // size)
    table = [0xFFFFFFFD, last] + [*range(3, count + 2), last]
    assert len(table) <= size // 4, "one sector of the table is enough for tests"
    head = bytearray(b"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + bytes(16) + struct.pack(
        "<HHHHH", 0x3E, 3, 0xFFFE, 9, 6) + bytes(6) + struct.pack(
        "<IIIIIIIII", 0, 1, 1, 0, 4096, last, 0, last, 0))
    head += struct.pack("<I", 0) + struct.pack("<I", free) * 108

    def entry(name: str, kind: int, child: int, start: int, length: int) -> bytes:
        text = (name + "\0").encode("utf-16-le")
        return (text.ljust(64, b"\0") + struct.pack("<HBBIII", len(text), kind, 1, free, free, child)
                + bytes(36) + struct.pack("<III", start, length, 0))

    directory = entry("Root Entry", 5, 1, last, 0) + entry("Workbook", 2, free, 2, len(stream))
    return (bytes(head) + struct.pack(f"<{size // 4}I", *table, *[free] * (size // 4 - len(table)))
            + directory.ljust(size, b"\0") + stream.ljust(count * size, b"\0"))
