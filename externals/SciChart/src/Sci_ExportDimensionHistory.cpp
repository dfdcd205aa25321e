#include "Sci_ExportDimensionHistory.h"

#include <QLocale>
#include <QSettings>

#include "Sci_PositiveNumberLineEdit.h"

namespace SCI {

const char * const ExportDimensionHistory::SETTINGS_KEY = "dimensionHistory";

/*! The application's settings store. */
static QSettings settingsStore() {
	return QSettings("ZEB", "OrvanePart");
}


QStringList ExportDimensionHistory::entries() {
	return settingsStore().value(SETTINGS_KEY).toStringList();
}


void ExportDimensionHistory::add(const QSizeF & sizeMM) {
	const QString entry = entryText(sizeMM);
	QStringList list = entries();
	list.removeAll(entry);
	list.prepend(entry);
	while (list.size() > MAX_ENTRIES)
		list.removeLast();
	settingsStore().setValue(SETTINGS_KEY, list);
}


QString ExportDimensionHistory::entryText(const QSizeF & sizeMM) {
	return QString("%1x%2").arg(QLocale::c().toString(sizeMM.width()), QLocale::c().toString(sizeMM.height()));
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
