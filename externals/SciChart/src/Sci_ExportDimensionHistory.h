#ifndef Sci_ExportDimensionHistoryH
#define Sci_ExportDimensionHistoryH

#include <QSizeF>
#include <QStringList>

namespace SCI {

/*! The last used sizes of vector exports, newest first. Each entry is the text "%1x%2", width x
	height in millimetres. The application keeps the list in its settings and hands it to the
	export dialog.
*/
class ExportDimensionHistory {
public:
	/*! Most entries kept. */
	static constexpr int MAX_ENTRIES = 10;

	/*! The readable entries of a stored list, at most MAX_ENTRIES. */
	explicit ExportDimensionHistory(const QStringList & entries = QStringList());

	/*! The entries, newest first. */
	const QStringList & entries() const { return m_entries; }
	/*! Puts the size at the front of the list, removing an equal older entry and entries beyond
		MAX_ENTRIES.
	*/
	void add(const QSizeF & sizeMM);

	/*! The entry text of a size, rounded to hundredths of a millimetre. */
	static QString entryText(const QSizeF & sizeMM);
	/*! Reads an entry; false for texts that are not two positive numbers joined by "x". */
	static bool parseEntry(const QString & entry, QSizeF & sizeMM);

private:
	QStringList	m_entries;
};

} // namespace SCI

#endif // Sci_ExportDimensionHistoryH
