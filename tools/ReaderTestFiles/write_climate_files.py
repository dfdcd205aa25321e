#!/usr/bin/env python3
"""Writes the test files of the climate and statistics readers (CCD, WAC, solver statistics of
generation 5 and 6) and one expectation file per test file (<file>.expected), independently of
the readers' C++ code.

    write_climate_files.py [output directory]

The default directory is externals/OrvanePart/tests/data/readers of the source tree. An
expectation file holds, one item per line:

    reader <reader name>
    quantity <name of the collection>
    start_year <year> | unset
    time_unit <unit>
    column <quantity>\t<unit>            one per value column
    warning <text a warning contains>    any number
    error <text the read's error contains>  (then nothing else follows)
    data                                 then one line per time point:
    <time>\t<value>\t...                 repr() of the floats, "gap" for a missing value
"""

import math
import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
DEFAULT_DIR = os.path.join(HERE, '..', '..', 'externals', 'OrvanePart', 'tests', 'data', 'readers')


class Expectation:
    """What a reader must make of one file."""

    def __init__(self, reader, quantity, start_year, time_unit):
        self.lines = ['reader ' + reader, 'quantity ' + quantity,
                      'start_year ' + ('unset' if start_year is None else str(start_year)),
                      'time_unit ' + time_unit]
        self.rows = []

    def column(self, quantity, unit):
        self.lines.append('column %s\t%s' % (quantity, unit))

    def warning(self, text):
        self.lines.append('warning ' + text)

    def row(self, time, values):
        cells = [repr(float(time))] + ['gap' if v is None else repr(v) for v in values]
        self.rows.append('\t'.join(cells))

    def text(self):
        return '\n'.join(self.lines + ['data'] + self.rows) + '\n'


def error_expectation(reader, message):
    return 'reader %s\nerror %s\n' % (reader, message)


def write(directory, name, content, expected, encoding='utf-8'):
    with open(os.path.join(directory, name), 'wb') as f:
        f.write(content.encode(encoding) if isinstance(content, str) else content)
    with open(os.path.join(directory, name + '.expected'), 'w', encoding='utf-8', newline='\n') as f:
        f.write(expected)


def wave(i, mean, amplitude, period, digits):
    """A value text with the given decimals, as climate files print them."""
    return '%.*f' % (digits, mean + amplitude*math.sin(2*math.pi*i/period))


# --- CCD ------------------------------------------------------------------------------------

def ccd_files(directory):
    # hourly temperatures over two days with a start year; one gap mark, one missing value,
    # one "-" and a time of day without seconds; LF line ends
    exp = Expectation('CCD climate data', 'Temperature', 2023, 's')
    exp.column('Temperature', 'C')
    lines = ['# Outdoor temperature, test reference year', '# year: 2023', '', 'TEMPER   C']
    for h in range(1, 49):
        day, hour = divmod(h, 24)
        time = '%d %02d:00' % (day, hour) if h == 5 else '%d %02d:00:00' % (day, hour)
        text = wave(h, -1.5, 4.25, 24, 2)
        if h == 7:
            text = 'NaN'
        elif h == 8:
            text = ''
        elif h == 30:
            text = '-'
        lines.append(('%s   %s' % (time, text)).rstrip())
        exp.row(day*86400 + hour*3600, [None if h in (7, 8, 30) else float(text)])
    write(directory, 'ccd_year.ccd', '\n'.join(lines) + '\n', exp.text())

    # relative humidity without a year, CRLF line ends, comments and empty lines between the
    # data lines, minutes and seconds off the hour, days beyond the first year
    exp = Expectation('CCD climate data', 'Relative humidity', None, 's')
    exp.column('Relative humidity', '%')
    lines = ['# Relative humidity', '# station 4711', 'RELHUM %']
    for i in range(30):
        day = 362 + i//8
        seconds = (i % 8)*3*3600 + 17*60 + 5
        if i == 12:
            lines += ['', '# sensor exchanged']
        text = wave(i, 80, 15.5, 11, 1)
        lines.append('%d\t%02d:%02d:%02d\t%s' % (day, seconds//3600, seconds % 3600//60, seconds % 60, text))
        exp.row(day*86400 + seconds, [float(text)])
    write(directory, 'ccd_crlf.ccd', '\r\n'.join(lines) + '\r\n', exp.text())

    # Latin-1 with CR line ends alone, a unit "°C", decimal comma, an unknown keyword, 24:00 for
    # the end of a day, exponent notation, and a last line without line end
    exp = Expectation('CCD climate data', 'SURFTEMP', None, 's')
    exp.column('SURFTEMP', 'C')
    lines = ['# Oberflächentemperatur Süd, gemessen', 'SURFTEMP °C']
    for i in range(1, 13):
        text = wave(i, 12, 9.75, 12, 3).replace('.', ',')
        if i == 6:
            text = '1,5e1'
        time = '0 24:00:00' if i == 12 else '0 %02d:00:00' % (2*i)
        lines.append('%s %s' % (time, text))
        exp.row(2*i*3600, [float(text.replace(',', '.'))])
    write(directory, 'ccd_latin1_cr.ccd', '\r'.join(lines), exp.text(), encoding='latin-1')

    # two lines with the same time (a duplicated hour): an error naming the line
    lines = ['TEMPER C', '0 01:00:00 1.0', '0 02:00:00 2.0', '0 02:00:00 2.5', '0 03:00:00 3.0']
    write(directory, 'ccd_duplicate.ccd', '\n'.join(lines) + '\n',
          error_expectation('CCD climate data', "line 4: the time '0 02:00:00' does not follow the time of line 3"))


# --- WAC ------------------------------------------------------------------------------------

WAC_KEYWORDS = {  # keyword: quantity, unit, factor
    'TA': ('Air temperature', 'C', 1), 'HREL': ('Relative humidity', '%', 100),
    'WS': ('Wind speed', 'm/s', 1), 'WD': ('Wind direction', 'Deg', 1), 'RN': ('Rain', 'mm/h', 1),
    'ISGH': ('Global horizontal radiation', 'W/m2', 1), 'ISD': ('Diffuse horizontal radiation', 'W/m2', 1),
    'PSTA': ('Air pressure', 'hPa', 1), 'CI': ('Cloud index', '-', 1), 'TSKY': ('Sky temperature', 'C', 1),
}


def wac_header(title_lines, step, count, keywords):
    """Header lines of a version-2 WAC file, line 1 in Latin-1 with a registered-trademark sign."""
    site = ['12.4\tLongitude [\u00b0]; East is positive', '51.3\tLatitude [\u00b0]; North is positive',
            '120.0\tHeightAMSL [m]', '1.0\tTime Zone [h from UTC]; East is positive']
    body = title_lines + site + ['%s\tTime Step [h]' % step, '%d\tNumber of DataLines' % count,
                                 '%d\tNumber of DataColumns' % len(keywords)]
    offset = len(body) + 1
    return ['ClimaTool\u00ae_WAC_02', "%d\tLine Offset to 'Number of Data Columns'" % offset] + body + \
        ['\t'.join(keywords)]


def wac_values(i, keywords):
    texts = {'TA': wave(i, 4, 6.5, 24, 2), 'HREL': wave(i, 0.8, 0.15, 24, 3), 'WS': wave(i, 3, 2.5, 7, 1),
             'WD': wave(i, 180, 170, 13, 0), 'RN': '%.1f' % (0.4 if i % 5 == 0 else 0),
             'ISGH': '%.1f' % max(0.0, 400*math.sin(2*math.pi*(i - 6)/24)), 'ISD': wave(i, 60, 50, 24, 1),
             'PSTA': wave(i, 1005, 12, 30, 1), 'CI': wave(i, 0.5, 0.4, 9, 2), 'TSKY': wave(i, -10, 5, 24, 2),
             'SNOW': '%.2f' % (i*0.01)}
    return [texts[k] for k in keywords]


def wac_files(directory):
    # no units line: units from the keywords, relative humidity as a fraction, an unknown
    # keyword, a gap between two tabs, hourly steps, a last empty line
    keywords = ['TA', 'HREL', 'WS', 'WD', 'RN', 'ISGH', 'SNOW']
    count = 30
    lines = wac_header(['Reference year, site A', ''], 1, count, keywords)
    exp = Expectation('WAC climate data', 'Reference year, site A', None, 'h')
    for k in keywords:
        quantity, unit, _ = WAC_KEYWORDS.get(k, (k, '-', 1))
        exp.column(quantity, unit)
    exp.warning("column 2: relative humidity as a fraction")
    exp.warning("column 7: unknown keyword 'SNOW'")
    for i in range(count):
        texts = wac_values(i, keywords)
        if i == 3:
            texts[2] = ''
        lines.append('\t'.join(texts))
        exp.row((i + 1)*1.0, [None if t == '' else float(t)*WAC_KEYWORDS.get(k, (0, 0, 1))[2]
                              for k, t in zip(keywords, texts)])
    write(directory, 'wac_keywords.wac', '\n'.join(lines) + '\n\n', exp.text(), encoding='latin-1')

    # a units line in brackets (relative humidity in %, a "°C" and an unknown unit text), half-hour
    # steps, two title lines, CRLF line ends, blank-separated data with decimal comma
    keywords = ['TA', 'HREL', 'PSTA', 'CI', 'TSKY', 'ISD']
    units = ['[\u00b0C]', '[%]', '[hPa]', '[-]', '[C]', '[W/m\u00b2]']
    count = 20
    lines = wac_header(['Test site B', 'hourly means, interpolated'], '0,5', count, keywords)
    lines.append('\t'.join(units))
    exp = Expectation('WAC climate data', 'Test site B', None, 'h')
    for k in keywords:
        quantity, unit, _ = WAC_KEYWORDS[k]
        exp.column(quantity, unit)
    for i in range(count):
        texts = wac_values(i, keywords)
        texts[1] = wave(i, 75, 20, 24, 1)
        lines.append('  '.join(t.replace('.', ',') for t in texts))
        exp.row((i + 1)*0.5, [float(t) for t in texts])
    lines = [lines[0], lines[1]] + [l.replace('.', ',') if l[:1].isdigit() else l for l in lines[2:]]
    write(directory, 'wac_units.wac', '\r\n'.join(lines) + '\r\n', exp.text(), encoding='latin-1')

    # the header promises more data lines than the file holds
    keywords = ['TA', 'HREL']
    lines = wac_header(['Short file'], 1, 10, keywords)
    lines += ['\t'.join(wac_values(i, keywords)) for i in range(9)]
    write(directory, 'wac_count_mismatch.wac', '\n'.join(lines) + '\n',
          error_expectation('WAC climate data', 'holds 9 data lines, but its header says 10'), encoding='latin-1')


# --- statistics -----------------------------------------------------------------------------

STAT_COLUMNS = [('Time step', 's'), ('Newton iterations', '-'), ('Error test failures', '-'),
                ('Relative error norm', '-')]


def stat_values(i):
    step = 2.0**(i % 7)*1.5e-3
    return ['%.6g' % step, '%d' % (3 + i % 4), '%d' % (i//5), '%.4e' % (1e-4/(1 + i))]


def statistics_files(directory):
    # generation 6: tab-separated, the time in seconds; a gap cell; the last line is incomplete
    # (a solver still writing) and is skipped with a warning
    exp = Expectation('Solver statistics', 'Solver statistics', None, 's')
    for name, unit in STAT_COLUMNS:
        exp.column(name, unit)
    exp.warning('line 27: the last line ends after 2 of 5 columns')
    lines = ['Time [s]\t' + '\t'.join('%s [%s]' % c for c in STAT_COLUMNS)]
    time = 0.0
    for i in range(25):
        time += 37.5*(i + 1)
        texts = stat_values(i)
        if i == 10:
            texts[3] = ''
        lines.append('%r\t%s' % (time, '\t'.join(texts)))
        exp.row(time, [None if t == '' else float(t) for t in texts])
    lines.append('%r\t%s' % (time + 60, stat_values(25)[0]))
    write(directory, 'integrator_stats.tsv', '\n'.join(lines), exp.text())

    # generation 5: comment lines, the last names the columns; blank-separated, time in hours
    exp = Expectation('Solver statistics', 'Solver statistics', None, 'h')
    for name, unit in STAT_COLUMNS[:3]:
        exp.column(name, unit)
    exp.warning("column 5: unknown unit 'iter/h'")
    exp.column('Iteration rate', '-')
    lines = ['# Soravi 5 solver statistics', '# project wall.d5p', '#',
             '# Time [h]   Time step [s]   Newton iterations [-]   Error test failures [-]   Iteration rate [iter/h]']
    for i in range(20):
        time = 0.25*(i + 1)
        texts = stat_values(i)[:3] + ['%.3f' % (100 + 7*i)]
        lines.append('%10s  %s' % (repr(time), '   '.join('%12s' % t for t in texts)))
        exp.row(time, [float(t) for t in texts])
    write(directory, 'solver_stats.txt', '\n'.join(lines) + '\n', exp.text())


def main():
    directory = sys.argv[1] if len(sys.argv) > 1 else DEFAULT_DIR
    os.makedirs(directory, exist_ok=True)
    ccd_files(directory)
    wac_files(directory)
    statistics_files(directory)


if __name__ == '__main__':
    main()
