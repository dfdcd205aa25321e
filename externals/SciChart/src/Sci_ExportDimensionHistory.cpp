#include "Sci_ExportDimensionHistory.h"

#include <cmath>

#include <QLocale>

#include "Sci_PositiveNumberLineEdit.h"

namespace SCI {

ExportDimensionHistory::ExportDimensionHistory(const QStringList & entries) {
	QSizeF size;
	for (const QString & entry : entries)
		if (m_entries.size() < MAX_ENTRIES && parseEntry(entry, size))
			m_entries.append(entry);
}


void ExportDimensionHistory::add(const QSizeF & sizeMM) {
	const QString entry = entryText(sizeMM);
	m_entries.removeAll(entry);
	m_entries.prepend(entry);
	while (m_entries.size() > MAX_ENTRIES)
		m_entries.removeLast();
}


QString ExportDimensionHistory::entryText(const QSizeF & sizeMM) {
	const QLocale c = QLocale::c();
	return QString("%1x%2").arg(c.toString(std::round(sizeMM.width()*100)/100),
								c.toString(std::round(sizeMM.height()*100)/100));
}


bool ExportDimensionHistory::parseEntry(const QString & entry, QSizeF & sizeMM) {
	const QStringList parts = entry.split('x');
	double w, h;
	if (parts.size() != 2
		|| !PositiveNumberLineEdit::parse(parts[0], false, w)
		|| !PositiveNumberLineEdit::parse(parts[1], false, h))
	{
		return false;
	}
	sizeMM = QSizeF(w, h);
	return true;
}

} // namespace SCI
