#ifndef OVP_MapperTreeModelH
#define OVP_MapperTreeModelH

#include <memory>
#include <vector>

#include <QAbstractItemModel>
#include <QList>

namespace OVP {

class Mapper;
class ProjectHandler;

/*! The mappers (charts) of a project in list order, as the tree of the west panel. The model
	owns the mappers; the row of a top-level item is its mapper index.

	Rows and columns:
	- top-level rows: one per mapper. Column ColumnName shows the name (editable, Qt::EditRole);
	  the tool tip names the kind of chart and its number of data sets. The other columns are
	  empty.
	- child rows: one per data set (extractor) of the mapper, in series order, read-only.
	  ColumnName: the file name (both names, comma-separated, for a model of two files; the tool
	  tip gives the full paths); ColumnCut: the cut type keyword and its indices, e.g.
	  "XTCut: x = 3, t = 12 (locked)", an unset time index reads "follow last time point";
	  ColumnManipulators: the manipulators in order, type keyword with the parameter in brackets;
	  ColumnModel: the model type keyword and its parameter text.

	Rows change only through the ProjectHandler: renaming (setData()) and reordering by drag and
	drop (dropMimeData()) ask the handler of the open session, which marks it modified and keeps
	the split layout's mapper indices in step. Only a model that belongs to the open session
	accepts edits. Child rows follow the series of each mapper's chart model as they are added,
	removed and updated.

	Top-level rows can be dragged within the model only (MoveAction, MIME_TYPE); they are dropped
	between top-level rows, or on the empty area to go last. removeRows() is deliberately not
	provided: a view finishing an internal move therefore leaves the rows where the drop put them;
	charts are deleted through ProjectHandler::deleteMappers(), which asks first.
*/
class MapperTreeModel : public QAbstractItemModel {
	Q_OBJECT
public:
	/*! The columns of the tree. */
	enum Columns {
		ColumnName,
		ColumnCut,
		ColumnManipulators,
		ColumnModel,
		NUM_COLUMNS
	};

	/*! Format of dragged top-level rows: the process id, the model's address and the mapper
		indices, so that only this model accepts them.
	*/
	static constexpr const char * MIME_TYPE = "application/x-orvane-mapper-indices";

	explicit MapperTreeModel(QObject * parent = nullptr);
	~MapperTreeModel() override;

	QModelIndex index(int row, int column, const QModelIndex & parent = QModelIndex()) const override;
	QModelIndex parent(const QModelIndex & child) const override;
	int rowCount(const QModelIndex & parent = QModelIndex()) const override;
	int columnCount(const QModelIndex & parent = QModelIndex()) const override;
	/*! Display, edit (top-level name) and tool tip roles as described for the class. */
	QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;
	QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
	/*! Renames a mapper (Qt::EditRole on a top-level name) through the project handler; a name
		that the handler refuses (empty) is reported and false is returned.
	*/
	bool setData(const QModelIndex & index, const QVariant & value, int role = Qt::EditRole) override;
	Qt::ItemFlags flags(const QModelIndex & index) const override;

	QStringList mimeTypes() const override;
	/*! The mapper indices of the top-level rows among indexes; null when there is none. */
	QMimeData * mimeData(const QModelIndexList & indexes) const override;
	Qt::DropActions supportedDropActions() const override;
	/*! True for a move of rows dragged from this model to a place between top-level rows. */
	bool canDropMimeData(const QMimeData * data, Qt::DropAction action, int row, int column,
						 const QModelIndex & parent) const override;
	/*! Moves the dragged mappers before row (row -1: to the end) through the project handler. */
	bool dropMimeData(const QMimeData * data, Qt::DropAction action, int row, int column,
					  const QModelIndex & parent) override;

	/*! The mapper index of the row of index, top-level or child (the chart to show when the row
		is selected); -1 for an invalid index.
	*/
	int mapperIndex(const QModelIndex & index) const;

	/*! Number of mappers. */
	int mapperCount() const { return static_cast<int>(m_mappers.size()); }
	/*! The mapper at a mapper index (0 <= index < mapperCount()). */
	Mapper * mapper(int index) const;
	/*! The mapper index of a mapper, -1 when it is not in the list. */
	int indexOf(const Mapper * mapper) const;

	/*! Appends a mapper and takes ownership. */
	void appendMapper(std::unique_ptr<Mapper> mapper);
	/*! Inserts a mapper at a mapper index (0 <= index <= mapperCount()) and takes ownership. */
	void insertMapper(int index, std::unique_ptr<Mapper> mapper);
	/*! Removes and deletes the mappers first..first+count-1; the range must be valid. */
	void removeMappers(int first, int count);
	/*! Rearranges the mappers: order lists every old mapper index once, in the new order. */
	void reorderMappers(const std::vector<int> & order);
	/*! Announces that the name or content of the mapper at index changed. */
	void mapperChanged(int index);

private:
	/*! The handler of the open session when this model belongs to it; null otherwise. */
	ProjectHandler * sessionHandler() const;
	/*! The mapper indices carried by dragged data; empty when the data do not come from this
		model or name no valid mapper.
	*/
	QList<int> draggedMapperIndices(const QMimeData * data) const;
	/*! Keeps the child rows of a mapper in step with the series of its chart model. */
	void followSeries(Mapper * mapper);

	std::vector<std::unique_ptr<Mapper> >	m_mappers;
};

} // namespace OVP

#endif // OVP_MapperTreeModelH
