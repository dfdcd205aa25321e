#ifndef OVP_DataManagerFilterModelH
#define OVP_DataManagerFilterModelH

#include <QSortFilterProxyModel>
#include <QString>

namespace OVP {

/*! Sorting and text filter of the data manager's file table: every column sorts by its raw
	value (Qt::UserRole: bytes, date and time, ...), and the filter text is looked for,
	ignoring case, in the file name and the quantity (for a reference collection also in the
	names of its data sets).
*/
class DataManagerFilterModel : public QSortFilterProxyModel {
	Q_OBJECT
public:
	explicit DataManagerFilterModel(QObject * parent = nullptr);

public slots:
	/*! Shows only the rows whose name or quantity contains the text; an empty text shows all. */
	void setFilterText(const QString & text);

protected:
	bool filterAcceptsRow(int sourceRow, const QModelIndex & sourceParent) const override;

private:
	QString	m_filterText;
};

} // namespace OVP

#endif // OVP_DataManagerFilterModelH
