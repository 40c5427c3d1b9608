#!/usr/bin/env python3
"""Makes the spreadsheet templates of data/shipped. What the program fills in are the named cells;
everything else is layout that users may change. Usage: make_templates.py [FOLDER]"""

import io
import re
import sys
import zipfile
from datetime import datetime
from pathlib import Path

from openpyxl import Workbook
from openpyxl.styles import Alignment, Border, Font, PatternFill, Side
from openpyxl.utils import get_column_letter
from openpyxl.workbook.defined_name import DefinedName
from openpyxl.worksheet.properties import PageSetupProperties

FACE = "Arial"
THIN, MEDIUM = Side(style="thin", color="9AA5B1"), Side(style="medium", color="4A5A6A")
HEADING_FILL = PatternFill("solid", fgColor="DCE6F1")
GROUP_FILL = PatternFill("solid", fgColor="EEF3F8")
NET_FILL = PatternFill("solid", fgColor="F3F5F8")
NUMBER, DATE, QUANTITY = "0", "dd/mm/yyyy", "###0.00"
PLAIN, GROUPED = "#0.00", "###,###.00"
MADE = datetime(2026, 11, 25)


def name(book, cell_name, sheet, row, column):
    # Fld1 would be a cell's place in a workbook of this format; such names begin with "_" there.
    if re.fullmatch("[A-Za-z]{1,3}[0-9]+", cell_name):
        cell_name = "_" + cell_name
    place = f"'{sheet.title}'!${get_column_letter(column)}${row}"
    book.defined_names.append(DefinedName(cell_name, attr_text=place))


def style(cell, bold=False, size=9, fill=None, align=None, mask=None, top=None, bottom=None,
          left=THIN, right=THIN, wrap=False):
    cell.font = Font(name=FACE, size=size, bold=bold)
    indent = 1 if align in ("left", "right") else 0
    cell.alignment = Alignment(horizontal=align, vertical="center", wrap_text=wrap, indent=indent)
    cell.border = Border(top=top or THIN, bottom=bottom or THIN, left=left, right=right)
    if fill:
        cell.fill = fill
    if mask:
        cell.number_format = mask


class Page:
    """A sheet from its titles down to the rows that are repeated."""

    def __init__(self, book, sheet, columns, prefix=""):
        self.book, self.sheet, self.columns, self.prefix = book, sheet, columns, prefix
        self.row = 1
        for index, (_, width, _) in enumerate(columns, 1):
            sheet.column_dimensions[get_column_letter(index)].width = width

    def title(self, cell_name, size, text=None, align="center"):
        sheet, last = self.sheet, len(self.columns)
        sheet.merge_cells(start_row=self.row, start_column=1, end_row=self.row, end_column=last)
        cell = sheet.cell(self.row, 1, text)
        cell.font = Font(name=FACE, size=size, bold=True)
        cell.alignment = Alignment(horizontal=align, vertical="center")
        sheet.row_dimensions[self.row].height = size * 1.7
        if cell_name:
            name(self.book, self.prefix + cell_name, sheet, self.row, 1)
        self.row += 1

    def groups(self, groups):
        column = 1
        for text, count, cell_name in groups:
            for at in range(column, column + count):
                style(self.sheet.cell(self.row, at), bold=True, fill=HEADING_FILL, align="center",
                      top=MEDIUM, bottom=MEDIUM, left=MEDIUM, right=MEDIUM)
            self.sheet.cell(self.row, column).value = text
            if count > 1:
                self.sheet.merge_cells(start_row=self.row, start_column=column,
                                       end_row=self.row, end_column=column + count - 1)
            if cell_name:
                name(self.book, self.prefix + cell_name, self.sheet, self.row, column)
            column += count
        self.first_heading = self.row
        self.row += 1

    def headings(self, named=None):
        self.first_heading = getattr(self, "first_heading", self.row)
        for index, (text, _, _) in enumerate(self.columns, 1):
            cell = self.sheet.cell(self.row, index, text)
            style(cell, bold=True, fill=HEADING_FILL, align="center", top=MEDIUM, bottom=MEDIUM,
                  wrap=True)
            if named and index in named:
                name(self.book, self.prefix + named[index], self.sheet, self.row, index)
        self.sheet.row_dimensions[self.row].height = 24
        self.row += 1

    def pattern(self, pattern, fields=None, edges=(), **looks):
        """A row that is repeated; every column is named, or those of `fields`. Long names wrap: the
        row is as high as its text."""
        for index, (_, _, mask) in enumerate(self.columns, 1):
            align = "left" if mask is None else "center" if mask in (DATE, NUMBER) else "right"
            style(self.sheet.cell(self.row, index), mask=mask, align=align,
                  left=MEDIUM if index in edges else THIN, wrap=mask is None, **looks)
            if fields is None or index in fields:
                name(self.book, f"{self.prefix}{pattern}{index}", self.sheet, self.row, index)
        self.row += 1

    def group(self, pattern="Grp"):
        """A heading over the whole width."""
        for index in range(1, len(self.columns) + 1):
            style(self.sheet.cell(self.row, index), bold=True, fill=GROUP_FILL, align="left",
                  left=None, right=None)
        self.sheet.merge_cells(start_row=self.row, start_column=1, end_row=self.row,
                               end_column=len(self.columns))
        name(self.book, f"{self.prefix}{pattern}1", self.sheet, self.row, 1)
        self.sheet.row_dimensions[self.row].height = 17
        self.row += 1

    def gap(self, pattern="Gap"):
        """An empty line between groups."""
        name(self.book, f"{self.prefix}{pattern}1", self.sheet, self.row, 1)
        self.sheet.row_dimensions[self.row].height = 8
        self.row += 1

    def finish(self):
        sheet = self.sheet
        sheet.sheet_view.showGridLines = False
        sheet.freeze_panes = sheet.cell(self.last_heading + 1, 1)
        sheet.print_title_rows = f"${self.first_heading}:${self.last_heading}"
        sheet.page_setup.orientation = "landscape"
        sheet.page_setup.paperSize = sheet.PAPERSIZE_A4
        sheet.page_setup.fitToHeight = 0
        sheet.sheet_properties.pageSetUpPr = PageSetupProperties(fitToPage=True)
        sheet.print_options.horizontalCentered = True
        sheet.page_margins.left = sheet.page_margins.right = 0.4
        sheet.page_margins.top = sheet.page_margins.bottom = 0.6
        sheet.page_margins.header = sheet.page_margins.footer = 0.3
        sheet.oddFooter.center.text = "Page &P of &N"

    def end_of_headings(self):
        self.last_heading = self.row - 1


def transactions(title, mask, closing_lines):
    book = Workbook()
    sheet = book.active
    sheet.title = "Transactions"
    page = Page(book, sheet, [
        ("S.No", 6, NUMBER), ("Date", 11, DATE), ("Bill No.", 15, None), ("Settl. No.", 12, None),
        ("Company Name", 36, None), ("Transaction", 11, None), ("Quantity", 10, QUANTITY),
        ("Rate", 11, mask), ("Trade Value", 14, mask), ("Brokerage", 11, mask),
        ("S.Tax", 10, mask), ("S.T.T.", 10, mask), ("Total", 15, mask)])
    page.title("CompId", 14)
    page.title(None, 12, title)
    page.title("DMat", 10)
    page.title("FrmAndToDt", 10)
    page.row += 1
    page.headings()
    page.end_of_headings()
    page.group()
    page.pattern("Fld")
    page.pattern("Tot", bold=True, top=MEDIUM, bottom=MEDIUM)
    if closing_lines:
        page.pattern("Sum", fields=(5, 13))
    page.pattern("Net", fields=(5, 13), bold=True, fill=NET_FILL, top=MEDIUM, bottom=MEDIUM)
    page.gap()
    page.finish()
    return book


def profit():
    book = Workbook()
    detail = book.active
    detail.title = "Detail"
    edges = (1, 5, 9, 10)
    page = Page(book, detail, [
        ("Date", 11, DATE), ("Quantity", 10, QUANTITY), ("Net", 11, PLAIN), ("Amount", 14, PLAIN),
        ("Date", 11, DATE), ("Quantity", 10, QUANTITY), ("Net", 11, PLAIN), ("Amount", 14, PLAIN),
        ("Purchase Cost", 14, PLAIN), ("Long Term", 13, PLAIN), ("Short Term", 13, PLAIN),
        ("Speculation", 13, PLAIN)])
    page.title("Title1", 14)
    page.title("Title2", 11)
    page.title("Period", 10)
    page.title("CompId", 11)
    page.row += 1
    page.groups([("Purchase", 4, None), ("Sale", 4, None), ("Proportionate", 1, None),
                 ("Profit", 3, "Head1")])
    page.headings({9: "Head2"})
    page.end_of_headings()
    page.group()
    page.pattern("Fld", edges=edges)
    page.pattern("Tot", edges=edges, bold=True, top=MEDIUM, bottom=MEDIUM)
    page.pattern("Net", edges=edges, bold=True, fill=NET_FILL, top=MEDIUM, bottom=MEDIUM)
    page.gap()
    page.finish()

    summary = book.create_sheet("Summary")
    page = Page(book, summary, [
        ("S.No.", 6, NUMBER), ("Company Name", 34, None), ("Quantity", 10, QUANTITY),
        ("Sale Date", 11, DATE), ("Sale Amount", 14, PLAIN), ("Purchase Date", 11, DATE),
        ("Avg. Pur. Cost", 12, PLAIN), ("Purc. Cost", 14, PLAIN), ("Profit/Loss", 13, PLAIN),
        ("Long Term", 13, PLAIN), ("Short Term", 13, PLAIN), ("Speculation", 13, PLAIN)], "S_")
    page.title("Title1", 14)
    page.title("Title2", 11)
    page.title("Period", 10)
    page.title("CompId", 11)
    page.row += 1
    page.headings()
    page.end_of_headings()
    page.group()
    page.pattern("Fld")
    page.pattern("Tot", bold=True, top=MEDIUM, bottom=MEDIUM)
    page.pattern("Net", bold=True, fill=NET_FILL, top=MEDIUM, bottom=MEDIUM)
    page.gap()
    page.finish()
    return book


def save(book, path):
    """The same bytes at every run."""
    book.properties.creator = "Quorvane"
    book.properties.created = book.properties.modified = MADE
    raw = io.BytesIO()
    book.save(raw)
    with zipfile.ZipFile(raw) as read, zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED) as write:
        for item in read.infolist():
            info = zipfile.ZipInfo(item.filename, MADE.timetuple()[:6])
            info.compress_type = zipfile.ZIP_DEFLATED
            content = read.read(item.filename)
            if item.filename == "docProps/core.xml":
                content = fixed_times(content)
            write.writestr(info, content)


def fixed_times(core):
    text = core.decode("utf-8")
    start, end = text.index("<dcterms:modified"), text.index("</dcterms:modified>")
    head = text[start:text.index(">", start) + 1]
    return (text[:start] + head + MADE.isoformat() + "Z" + text[end:]).encode("utf-8")


def main():
    root = Path(__file__).resolve().parent.parent
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else root / "data" / "shipped"
    folder.mkdir(parents=True, exist_ok=True)
    save(transactions("TRANSACTION REPORT", PLAIN, True), folder / "TransRpt.xlsx")
    save(transactions("EQUITY TRANSACTION REPORT", GROUPED, False), folder / "TransRptNew.xlsx")
    save(profit(), folder / "ProfitGainRpt.xlsx")


if __name__ == "__main__":
    main()
