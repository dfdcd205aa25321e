#include "OVP_ChartDataText.h"

#include <cmath>

#include <QFileInfo>
#include <QSaveFile>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "OVP_ChartDataTable.h"
#include "OVP_Settings.h"

namespace OVP {

ChartDataText::Format ChartDataText::clipboardFormat(const Settings & settings) {
	Format f;
	f.m_headers = settings.m_exportHeadersEnabled;
	// an undecided German format (-1) counts as no
	f.m_germanFormat = settings.m_exportGermanFormatEnabled == 1;
	f.m_separateUnitLines = settings.m_exportSeperateLinesForUnitsEnabled;
	return f;
}


ChartDataText::Format ChartDataText::fileFormat(const Settings & settings, const QString & fileName) {
	Format f = clipboardFormat(settings);
	const QString suffix = QFileInfo(fileName).suffix().toLower();
	if (suffix != "tsv" && suffix != "tab" && suffix != "txt")
		f.m_delimiter = f.m_germanFormat ? ';' : ',';
	f.m_lineEnd = "\r\n";
	return f;
}


QString ChartDataText::text(const ChartDataTable & table, const QList<int> & rows, const QList<int> & columns,
							const Format & format)
{
	QString result;
	// appends one line of fields
	auto addLine = [&](const auto & fieldOfColumn) {
		for (int i = 0; i < columns.size(); ++i) {
			if (i > 0)
				result += format.m_delimiter;
			result += field(fieldOfColumn(columns[i]), format.m_delimiter);
		}
		result += format.m_lineEnd;
	};
	if (format.m_headers && !columns.isEmpty()) {
		if (format.m_separateUnitLines) {
			addLine([&table](int c) { return table.column(c).m_title; });
			addLine([&table](int c) {
				const QString & unit = table.column(c).m_unit;
				return unit.isEmpty() ? QString() : "[" + unit + "]";
			});
		}
		else {
			addLine([&table](int c) { return table.header(c); });
		}
	}
	for (int r : rows) {
		addLine([&](int c) {
			const QString t = table.text(r, c);
			return t.isEmpty() ? number(table.value(r, c), format.m_germanFormat) : t;
		});
	}
	return result;
}


QString ChartDataText::text(const ChartDataTable & table, const Format & format) {
	QList<int> rows;
	for (int r = 0; r < table.rowCount(); ++r)
		rows.append(r);
	QList<int> columns;
	for (int c = 0; c < table.columnCount(); ++c)
		columns.append(c);
	return text(table, rows, columns, format);
}


void ChartDataText::writeFile(const ChartDataTable & table, const QString & fileName, const Format & format) {
	FUNCID(ChartDataText::writeFile);
	QSaveFile file(fileName);
	const QByteArray data = text(table, format).toUtf8();
	if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size() || !file.commit())
		throw ZEB::Exception(ZEB::MessageFormat("Cannot write data file '%1': %2.")
							 .arg(fileName.toStdString()).arg(file.errorString().toStdString()), FUNC_ID);
}


QString ChartDataText::number(double value, bool germanFormat) {
	if (std::isnan(value))
		return QString();
	QString text = QString::fromStdString(ZEB::shortestDoubleString(value));
	if (germanFormat)
		text.replace('.', ',');
	return text;
}


QString ChartDataText::field(const QString & text, QChar delimiter) {
	if (!text.contains(delimiter) && !text.contains('"') && !text.contains('\n') && !text.contains('\r'))
		return text;
	QString quoted = text;
	quoted.replace("\"", "\"\"");
	return "\"" + quoted + "\"";
}

} // namespace OVP
