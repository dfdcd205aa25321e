#!/usr/bin/python3
"""Writes the CSV/TSV table and logger export test files of the file readers, each with an
expectation file "<name>.expected" that says what a reader must make of it. The expectations are
computed here, independently of the readers: times with Python's datetime, values written with
repr() so that they read back bit for bit.

    write_table_files.py [DIRECTORY]    (default: externals/OrvanePart/tests/data/readers)

Expectation file, one item per line, fields separated by tabs:
    reader <name>                  the reader that takes the file
    collection <text>              name of the collection (quantity of the container)
    description <fragment>         the description contains the fragment
    start_year <year>|none
    time_unit <unit>
    column <quantity> <unit>       one per data set, in order
    warning <fragment>             a warning whose text contains the fragment
    row <time> <value>|gap ...     one per time point
    error <fragment>               reading fails with a message containing the fragment
"""
import datetime
import os
import random
import sys

TABLE = "CSV/TSV table"
LOGGER = "Logger CSV export"


class TestFile:
    """One test file: its text lines and the expectation lines."""

    def __init__(self, name, reader):
        self.name = name
        self.lines = []
        self.expected = [f"reader\t{reader}"]

    def expect(self, *fields):
        self.expected.append("\t".join(str(f) for f in fields))

    def row(self, time, values):
        self.expect("row", repr(float(time)), *["gap" if v is None else repr(v) for v in values])

    def write(self, directory, encoding="utf-8", newline="\n", bom=False):
        data = newline.join(self.lines) + newline
        raw = data.encode(encoding)
        if bom:
            raw = b"\xef\xbb\xbf" + raw
        with open(os.path.join(directory, self.name), "wb") as f:
            f.write(raw)
        with open(os.path.join(directory, self.name + ".expected"), "w", encoding="utf-8", newline="\n") as f:
            f.write("# written by tools/ReaderTestFiles/write_table_files.py\n")
            f.write("\n".join(self.expected) + "\n")


def seconds(start_year, moment):
    return (moment - datetime.datetime(start_year, 1, 1)).total_seconds()


def value(rng, low, high):
    return rng.uniform(low, high)


def comma(x):
    return repr(x).replace(".", ",")


def point_comma_table(rng):
    """',' delimiter, numeric hours with irregular steps, comments, units in [], () and ² forms,
    exponents, a negative zero."""
    f = TestFile("table_point.csv", TABLE)
    f.lines += ["# Test hut, south wall", "# sensors at 2 cm depth",
                "Time [h],Temperature [°C],RH (%),Heat flux [W/m²],Moisture [kg/kg]"]
    f.expect("collection", "table_point")
    f.expect("description", "Test hut, south wall")
    f.expect("start_year", "none")
    f.expect("time_unit", "h")
    for q, u in (("Temperature", "C"), ("RH", "%"), ("Heat flux", "W/m2"), ("Moisture", "kg/kg")):
        f.expect("column", q, u)
    t = 0.0
    for i in range(30):
        vals = [value(rng, -5, 30), value(rng, 20, 100), value(rng, -50, 50), value(rng, 0, 1) * 1e-5]
        if i == 3:
            vals[2] = -0.0
        f.lines.append(",".join([repr(t)] + [repr(v) for v in vals]))
        f.row(t, vals)
        t += rng.choice([0.25, 0.5, 1.0, 2.75])
    return f, {}


def latin1_crlf_table(rng):
    """';' delimiter, decimal comma, Latin-1 "°C", CRLF, German dates over the leap day of 2024,
    day-first decided from the values."""
    f = TestFile("table_latin1_crlf.csv", TABLE)
    f.lines += ["Datum;Temperatur [°C];rel. Feuchte [% rF];Luftdruck [hPa]"]
    f.expect("collection", "table_latin1_crlf")
    f.expect("start_year", "2024")
    f.expect("time_unit", "s")
    for q, u in (("Temperatur", "C"), ("rel. Feuchte", "%"), ("Luftdruck", "hPa")):
        f.expect("column", q, u)
    f.expect("warning", "read day-first")
    moment = datetime.datetime(2024, 2, 27, 0, 0)
    while moment <= datetime.datetime(2024, 3, 2, 12, 0):
        vals = [value(rng, -10, 10), value(rng, 40, 100), value(rng, 950, 1050)]
        f.lines.append(";".join([moment.strftime("%d.%m.%Y %H:%M")] + [comma(v) for v in vals]))
        f.row(seconds(2024, moment), vals)
        moment += datetime.timedelta(hours=6)
    return f, {"encoding": "latin-1", "newline": "\r\n"}


def bom_iso_table(rng):
    """UTF-8 with BOM, tab delimiter, quoted header names, a unit row, ISO dates with "T" and with
    seconds (some with a fraction) over the turn of the year 2023/24."""
    f = TestFile("table_bom_iso.tsv", TABLE)
    f.lines += ['"Date"\t"Outdoor temperature"\t"Outdoor humidity"\t"Rain"', '\t°C\t%\t[mm/h]']
    f.expect("collection", "table_bom_iso")
    f.expect("start_year", "2023")
    f.expect("time_unit", "s")
    for q, u in (("Outdoor temperature", "C"), ("Outdoor humidity", "%"), ("Rain", "mm/h")):
        f.expect("column", q, u)
    moment = datetime.datetime(2023, 12, 31, 20, 0, 0)
    for i in range(12):
        if i % 2 == 0:
            text = moment.strftime("%Y-%m-%dT%H:%M")
        else:
            moment += datetime.timedelta(seconds=rng.choice([1, 15]), microseconds=rng.choice([0, 500000]))
            text = moment.strftime("%Y-%m-%d %H:%M:%S") + (".5" if moment.microsecond else "")
        vals = [value(rng, -3, 5), value(rng, 70, 100), float(rng.choice([0, 0, 0.1, 0.4]))]
        f.lines.append("\t".join([text] + [repr(v) for v in vals]))
        f.row(seconds(2023, moment), vals)
        moment = moment.replace(second=0, microsecond=0) + datetime.timedelta(minutes=rng.choice([30, 45, 60]))
    return f, {"bom": True}


def quoted_gaps_table(rng):
    """',' delimiter with quoted fields holding the delimiter and doubled quotes, "Name, unit"
    headers, gaps of every mark, quoted numbers, an unknown unit."""
    f = TestFile("table_quoted_gaps.csv", TABLE)
    f.lines += ['"Time, min","Temp, °C","Radon, Bq/m3","Air ""fresh"" flow, m3/h"']
    f.expect("collection", "table_quoted_gaps")
    f.expect("start_year", "none")
    f.expect("time_unit", "min")
    for q, u in (("Temp", "C"), ("Radon", "-"), ('Air "fresh" flow', "m3/h")):
        f.expect("column", q, u)
    f.expect("warning", "unknown unit 'Bq/m3'")
    gaps = ["", "NaN", "NA", "-", "---", '""', " ", "nan"]
    for i in range(16):
        t = i * 10.0
        vals = [value(rng, 15, 25), value(rng, 10, 400), value(rng, 0, 200)]
        cells = []
        for j, v in enumerate(vals):
            if (i + j) % 3 == 0:
                cells.append(gaps[(i + j) % len(gaps)])
                vals[j] = None
            elif (i + j) % 3 == 1:
                cells.append(f'"{v!r}"')
            else:
                cells.append(repr(v))
        f.lines.append(",".join([repr(t)] + cells))
        f.row(t, vals)
    return f, {}


def slash_table(name, start, hours, fmt, rng, order_warning):
    f = TestFile(name, TABLE)
    f.lines += ["Date Time;Temperature [C];RH [%]"]
    f.expect("collection", name.rsplit(".", 1)[0])
    f.expect("start_year", str(start.year))
    f.expect("time_unit", "s")
    f.expect("column", "Temperature", "C")
    f.expect("column", "RH", "%")
    f.expect("warning", order_warning)
    moment = start
    for i in range(hours):
        vals = [value(rng, 0, 25), value(rng, 30, 90)]
        f.lines.append(";".join([moment.strftime(fmt)] + [repr(v) for v in vals]))
        f.row(seconds(start.year, moment), vals)
        moment += datetime.timedelta(hours=1)
    return f, {}


def cr_table(rng):
    """Line ends CR alone, tab delimiter, time in days."""
    f = TestFile("table_cr.txt", TABLE)
    f.lines += ["Time [d]\tSolar radiation [W/m2]"]
    f.expect("collection", "table_cr")
    f.expect("start_year", "none")
    f.expect("time_unit", "d")
    f.expect("column", "Solar radiation", "W/m2")
    for i in range(10):
        t = 1.0 + i / 8
        v = value(rng, 0, 800)
        f.lines.append(f"{t!r}\t{v!r}")
        f.row(t, [v])
    return f, {"newline": "\r"}


def dst_table(rng):
    """A logger in local time that wrote the hour of the change to standard time twice."""
    f = TestFile("table_dst_duplicate.csv", TABLE)
    f.lines += ["Time,Temperature [C]"]
    moment = datetime.datetime(2023, 10, 29, 0, 0)
    texts = []
    for i in range(6):
        texts.append(moment.strftime("%Y-%m-%d %H:%M"))
        if i != 2:
            moment += datetime.timedelta(hours=1)
    # lines: header 1, 00:00 2, 01:00 3, 02:00 4, 02:00 again 5
    for text in texts:
        f.lines.append(f"{text},{value(rng, 5, 15)!r}")
    f.expect("error", "Line 5 of file")
    f.expect("error", "daylight-saving")
    return f, {}


def logger_wall(rng):
    """The usual logger export: title with a registered-trademark sign, Latin-1 "°C", a label,
    event columns, two-digit years with AM/PM, CRLF."""
    f = TestFile("logger_wall.csv", LOGGER)
    serial = "LGR S/N: 10360568, SEN S/N: 10360568"
    f.lines += ['"Plot Title: Wall sensor 3 ®"',
                f'"#","Date Time, GMT+01:00","Temp, °C ({serial})","RH, % ({serial}, LBL: wall RH)",'
                f'"Coupler Detached (LGR S/N: 10360568)","End Of File (LGR S/N: 10360568)"']
    f.expect("collection", "Wall sensor 3 ®")
    f.expect("description", "Times are local times of GMT+01:00.")
    f.expect("start_year", "2023")
    f.expect("time_unit", "s")
    f.expect("column", "Temp", "C")
    f.expect("column", "wall RH", "%")
    f.expect("warning", "event columns skipped")
    f.expect("warning", "read month-first")
    moment = datetime.datetime(2023, 1, 15, 14, 30)
    for i in range(24):
        vals = [round(value(rng, 18, 23), 3), round(value(rng, 40, 60), 1)]
        events = ["Logged" if i == 0 else "", "Logged" if i == 23 else ""]
        f.lines.append(",".join([str(i + 1), moment.strftime("%m/%d/%y %I:%M:%S %p")] +
                                [repr(v) for v in vals] + events))
        f.row(seconds(2023, moment), vals)
        moment += datetime.timedelta(minutes=30)
    return f, {"encoding": "latin-1", "newline": "\r\n"}


def logger_restart(rng):
    """A logger stopped and restarted: irregular intervals, a gap of days, empty cells, event
    words, day-first dates with a 24-hour clock, lines without their trailing event fields."""
    f = TestFile("logger_restart.csv", LOGGER)
    f.lines += ['"#","Date Time, GMT+00:00","Temp, °C (LGR S/N: 2045, LBL: attic)","RH, %RH (LGR S/N: 2045)",'
                '"Stopped (LGR S/N: 2045)"']
    f.expect("collection", "logger_restart")
    f.expect("start_year", "2023")
    f.expect("time_unit", "s")
    f.expect("column", "attic", "C")
    f.expect("column", "RH", "%")
    f.expect("warning", "read day-first")
    moment = datetime.datetime(2023, 3, 10, 22, 0)
    for i in range(20):
        vals = [value(rng, 2, 12), value(rng, 60, 95)]
        cells = [repr(v) for v in vals]
        if i == 7:
            cells[1] = ""
            vals[1] = None
        line = [str(i + 1), moment.strftime("%d/%m/%Y %H:%M:%S")] + cells
        if i == 9:
            line.append("Stopped")
        elif i % 4 != 0:
            line.append("")
        f.lines.append(",".join(line))
        f.row(seconds(2023, moment), vals)
        moment += datetime.timedelta(days=3, hours=5) if i == 9 else datetime.timedelta(minutes=rng.choice([1, 5, 10]))
    return f, {}


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    default = os.path.join(here, "..", "..", "externals", "OrvanePart", "tests", "data", "readers")
    directory = sys.argv[1] if len(sys.argv) > 1 else default
    os.makedirs(directory, exist_ok=True)
    rng = random.Random(13)
    makers = [
        point_comma_table, latin1_crlf_table, bom_iso_table, quoted_gaps_table, cr_table, dst_table,
        lambda r: slash_table("table_us_dates.csv", datetime.datetime(2023, 1, 12, 20, 0), 30,
                              "%m/%d/%Y %I:%M %p", r, "read month-first"),
        lambda r: slash_table("table_ambiguous.csv", datetime.datetime(2023, 3, 4, 5, 0), 12,
                              "%m/%d/%y %H:%M", r, "do not show whether day or month"),
        logger_wall, logger_restart,
    ]
    for make in makers:
        f, options = make(rng)
        f.write(directory, **options)
        print(f"{f.name}: {len(f.lines)} lines")


if __name__ == "__main__":
    main()
