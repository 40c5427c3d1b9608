#!/usr/bin/env python3
"""Checks the translations: places for values and access keys are those of the source, nothing is
half done, and no report speaks anything but English. Usage: translations.py SOURCE_ROOT"""

import pathlib
import re
import sys
import xml.etree.ElementTree as ET

# What these say stands in reports, which users file.
REPORTS = {"BrokerLedger", "MisReport", "Statement", "quorvane::charts::ChartPictureView"}
PLACE = re.compile(r"%\d")
ACCESS_KEY = re.compile(r"&(?!&)\w", re.UNICODE)


def faults(context, source, translation):
    if sorted(PLACE.findall(source)) != sorted(PLACE.findall(translation)):
        yield "has other places for values"
    if bool(ACCESS_KEY.search(source.replace("&&", ""))) != ("(&" in translation) and source != "F&O":
        yield "gains or loses its access key"
    if source.endswith("...") != translation.endswith("..."):
        yield "gains or loses its dots"
    if source.count("\n") != translation.count("\n"):
        yield "has other lines"
    if context in REPORTS:
        yield "stands in a report"


def check(root):
    errors, count = [], 0
    for file in sorted((root / "translations").glob("*.ts")):
        for context in ET.parse(file).getroot().findall("context"):
            name = context.findtext("name")
            for message in context.findall("message"):
                source, translation = message.findtext("source"), message.find("translation")
                if not translation.text:
                    continue
                count += 1
                if translation.get("type"):
                    errors.append(f"{file.name}: {name}: {source!r} is not finished")
                errors += [f"{file.name}: {name}: {source!r} {fault}"
                           for fault in faults(name, source, translation.text)]
    return errors if count else ["no translation was found"]


if __name__ == "__main__":
    found = check(pathlib.Path(sys.argv[1]))
    print("\n".join(found) or "the translations hold")
    sys.exit(bool(found))
