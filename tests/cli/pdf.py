"""Small PDF documents made of lines of text, as brokers and depositories print them."""

import subprocess
from pathlib import Path

LETTER = 6  # points: Courier of size 10
LINES = 60  # on a page


def _stream(lines: list[str]) -> bytes:
    drawn = ["BT /F1 10 Tf"]
    for number, line in enumerate(lines):
        words, at = [], 0
        for word in line.split(" "):
            if word:
                words.append((at, word))
            at += len(word) + 1
        for at, word in words:
            escaped = word.replace("\\", r"\\").replace("(", r"\(").replace(")", r"\)")
            drawn.append(f"1 0 0 1 {30 + at * LETTER} {800 - number * 12} Tm ({escaped}) Tj")
    return "\n".join(drawn + ["ET"]).encode("latin-1")


def document(text: str) -> bytes:
    lines = text.strip("\n").split("\n") if text else []
    pages = [lines[at:at + LINES] for at in range(0, len(lines), LINES)] or [[]]
    objects = [b"<</Type/Catalog/Pages 2 0 R>>",
               b"<</Type/Pages/Kids[" + b" ".join(b"%d 0 R" % (4 + 2 * i)
                                                  for i in range(len(pages)))
               + b"]/Count %d>>" % len(pages),
               b"<</Type/Font/Subtype/Type1/BaseFont/Courier/Encoding/WinAnsiEncoding>>"]
    for i, page in enumerate(pages):
        stream = _stream(page) if page else b"0 0 100 100 re f"
        objects += [b"<</Type/Page/Parent 2 0 R/MediaBox[0 0 1200 842]/Contents %d 0 R"
                    b"/Resources<</Font<</F1 3 0 R>>>>>>" % (5 + 2 * i),
                    b"<</Length %d>>stream\n%s\nendstream" % (len(stream), stream)]
    out = bytearray(b"%PDF-1.4\n")
    places = []
    for number, body in enumerate(objects, 1):
        places.append(len(out))
        out += b"%d 0 obj\n%s\nendobj\n" % (number, body)
    start = len(out)
    out += b"xref\n0 %d\n0000000000 65535 f \n" % (len(objects) + 1)
    out += b"".join(b"%010d 00000 n \n" % place for place in places)
    out += b"trailer<</Size %d/Root 1 0 R>>\nstartxref\n%d\n%%%%EOF\n" % (len(objects) + 1, start)
    return bytes(out)


def write(path: Path, text: str, password: str = "", bits: int = 256) -> Path:
    path.write_bytes(document(text))
    if password:
        locked = path.with_suffix(".locked")
        strength = [str(bits)] + (["--use-aes=y"] if bits == 128 else [])
        subprocess.run(["qpdf", "--allow-weak-crypto", "--encrypt", password, password, *strength,
                        "--", path, locked], check=True)
        locked.replace(path)
    return path
