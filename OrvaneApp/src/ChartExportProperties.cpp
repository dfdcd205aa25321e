#include "ChartExportProperties.h"

#include <QRegularExpression>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

void ChartExportProperties::parse(const QString & request) {
	FUNCID(MainView::ChartExportProperties::parse);
	const std::string arg = request.toStdString();

	QStringList parts = request.split(":");
	for (QString & p : parts)
		p = p.trimmed();
	if (parts.size() != 3)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid argument '%1' to option --generate-chart").arg(arg), FUNC_ID);

	// "800x600": only a lower-case x separates the two numbers
	QString dims = parts[1];
	dims.replace("x", " ");
	const QStringList numbers = dims.split(QRegularExpression("\\s+"), Qt::SkipEmptyParts);
	bool widthOk = false;
	bool heightOk = false;
	const int width = numbers.size() == 2 ? numbers[0].toInt(&widthOk) : 0;
	const int height = numbers.size() == 2 ? numbers[1].toInt(&heightOk) : 0;
	if (!widthOk || !heightOk || width < 1 || height < 1)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid dimensions in argument '%1' to option --generate-chart").arg(arg), FUNC_ID);

	bool indexOk = false;
	const int chartNumber = parts[0].toInt(&indexOk);
	if (!indexOk)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid index argument '%1' to option --generate-chart").arg(arg), FUNC_ID);
	// compared before subtracting, so that the smallest integer cannot overflow
	if (chartNumber < 1)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid mapper index (must be > 0) in argument '%1' to option --generate-chart")
							 .arg(arg), FUNC_ID);

	m_mapperIndex = chartNumber - 1;
	m_width = width;
	m_height = height;
	m_fileName = parts[2];
}


QStringList ChartExportProperties::specFileLines(const QString & content) {
	QStringList lines = content.split("\n");
	if (lines.size() > 1 && lines.last().isEmpty())
		lines.removeLast();
	for (QString & line : lines)
		line = line.trimmed();
	return lines;
}
