#ifndef Sci_ExportDimensionHistoryH
#define Sci_ExportDimensionHistoryH

#include <QSizeF>
#include <QStringList>

namespace SCI {

/*! The last used sizes of vector exports, newest first, kept in the application's settings store
	(organisation "ZEB", application "OrvanePart") under the key "dimensionHistory". Each entry
	is the text "%1x%2", width x height in millimetres.
*/
class ExportDimensionHistory {
public:
	/*! Settings key of the list. */
	static const char * const SETTINGS_KEY;
	/*! Most entries kept. */
	static constexpr int MAX_ENTRIES = 10;

	/*! The stored entries, newest first. */
	static QStringList entries();
	/*! Puts the size at the front of the list, removing an equal older entry and entries beyond
		MAX_ENTRIES, and stores the list.
	*/
	static void add(const QSizeF & sizeMM);

	/*! The entry text of a size. */
	static QString entryText(const QSizeF & sizeMM);
	/*! Reads an entry; false for texts that are not two positive numbers joined by "x". */
	static bool parseEntry(const QString & entry, QSizeF & sizeMM);
};

} // namespace SCI

#endif // Sci_ExportDimensionHistoryH
