#ifndef OVP_MapperTreeModelH
#define OVP_MapperTreeModelH

#include <memory>
#include <vector>

#include <QAbstractListModel>

namespace OVP {

class Mapper;

/*! The mappers of a project in list order, as an item model for the mapper view. The row of a
	mapper is its mapper index. The model owns the mappers.
*/
class MapperTreeModel : public QAbstractListModel {
	Q_OBJECT
public:
	explicit MapperTreeModel(QObject * parent = nullptr);
	~MapperTreeModel() override;

	int rowCount(const QModelIndex & parent = QModelIndex()) const override;
	/*! Display and edit role: the mapper name; tool tip: the name and the number of data sets. */
	QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;

	/*! Number of mappers. */
	int mapperCount() const { return static_cast<int>(m_mappers.size()); }
	/*! The mapper at a mapper index (0 <= index < mapperCount()). */
	Mapper * mapper(int index) const;
	/*! The mapper index of a mapper, -1 when it is not in the list. */
	int indexOf(const Mapper * mapper) const;

	/*! Appends a mapper and takes ownership. */
	void appendMapper(std::unique_ptr<Mapper> mapper);
	/*! Removes and deletes the mappers first..first+count-1; the range must be valid. */
	void removeMappers(int first, int count);
	/*! Announces that the name or content of the mapper at index changed. */
	void mapperChanged(int index);

private:
	std::vector<std::unique_ptr<Mapper> >	m_mappers;
};

} // namespace OVP

#endif // OVP_MapperTreeModelH
