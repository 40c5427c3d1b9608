#!/usr/bin/env python3
"""Checks the translations: every text is finished, places for values and access keys are those of
the source, and no report speaks anything but English. Usage: translations.py SOURCE_ROOT"""

import pathlib
import re
import sys
import xml.etree.ElementTree as ET

# What these say stands in reports, which users file.
REPORTS = {"BrokerLedger", "MisReport", "Statement", "quorvane::charts::ChartPictureView"}
REPORT_TEXTS = {("ReportOutput", "Page %1 of %2"), ("TransactionReport", "Total Payable"),
                ("TransactionReport", "Total Receivable"),
                ("quorvane::profit::RptProfitStatement", "Financial Year : ")}
# Windows whose name is also the context of marked texts.
MARKED = {"StartPage"}
PLACE = re.compile(r"%L?\d+|%n|\{\w*\}")
ACCESS_KEY = re.compile(r"&(\w)")


def access_keys(text):
    return [] if text == "F&O" else ACCESS_KEY.findall(text.replace("&&", "").upper())


def faults(context, source, translation):
    if sorted(PLACE.findall(source)) != sorted(PLACE.findall(translation)):
        yield "has other places for values"
    if access_keys(source) != re.findall(r"\(&(\w)\)", translation):
        yield "has another access key"
    if source.endswith("...") != translation.endswith("..."):
        yield "gains or loses its dots"
    if source.count("\n") != translation.count("\n"):
        yield "has other lines"
    if (context in REPORTS or (context, source) in REPORT_TEXTS) and translation != source:
        yield "stands in a report"


def check(root):
    errors, count = [], 0
    windows = set(re.findall(r"class (\w+)[^;{]*\{\s*Q_OBJECT", "".join(
        file.read_text() for file in (root / "src").rglob("*.h"))))
    for file in sorted((root / "translations").glob("*.ts")):
        for context in ET.parse(file).getroot().findall("context"):
            name = context.findtext("name")
            # lupdate lost the namespace, and the text would stay English: the function above takes or
            # returns a type with a namespace of its own.
            if name in windows - MARKED:
                errors.append(f"{file.name}: {name} has texts in no namespace")
            for message in context.findall("message"):
                source, translation = message.findtext("source"), message.find("translation")
                forms = [form.text for form in translation.findall("numerusform")]
                forms = forms or [translation.text]
                count += 1
                if translation.get("type") or not all(forms):
                    errors.append(f"{file.name}: {name}: {source!r} is not finished")
                errors += [f"{file.name}: {name}: {source!r} {fault}" for form in forms if form
                           for fault in faults(name, source, form)]
    return errors if count else ["no translation was found"]


if __name__ == "__main__":
    found = check(pathlib.Path(sys.argv[1]))
    print("\n".join(found) or "the translations hold")
    sys.exit(bool(found))
