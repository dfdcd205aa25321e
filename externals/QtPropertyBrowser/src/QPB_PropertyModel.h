#ifndef QPB_PropertyModelH
#define QPB_PropertyModelH

#include <memory>

#include <QAbstractItemModel>

namespace QPB {

class Property;

/*! A two-column item model (name | value) over a tree of properties below an invisible root.

	The model never changes a value by itself. An edit (setData() on a value cell, from an editor
	or a check box) is checked by the value type; an acceptable value that differs from the
	current one is sent to the owner with valueEditRequested(), and the owner decides whether to
	take it and shows the outcome with Property::setValue(). An edit of a sub-property (a pen's
	width) requests the whole new value of its compound property (the pen). An unacceptable value
	emits nothing.

	Rows of disabled properties are not enabled; a property whose value differs from its default
	has a bold name; group rows are shaded.
*/
class PropertyModel : public QAbstractItemModel {
	Q_OBJECT
public:
	enum Column {
		C_Name,
		C_Value,
		NUM_C
	};

	explicit PropertyModel(QObject * parent = nullptr);
	~PropertyModel() override;

	/*! The invisible root group; properties are added below it. */
	Property * root() const { return m_root.get(); }
	/*! Removes all properties. */
	void clear();

	/*! The property of a row, or nullptr for an invalid index. */
	Property * property(const QModelIndex & index) const;
	/*! The index of a property's cell in column (invalid for the root and nullptr). */
	QModelIndex indexOf(const Property * property, int column = C_Name) const;

	QModelIndex index(int row, int column, const QModelIndex & parent = QModelIndex()) const override;
	QModelIndex parent(const QModelIndex & child) const override;
	int rowCount(const QModelIndex & parent = QModelIndex()) const override;
	int columnCount(const QModelIndex & parent = QModelIndex()) const override;
	QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;
	/*! Requests a new value (Qt::EditRole with the value, Qt::CheckStateRole for a check box);
		returns false when the value is refused or the cell is not editable.
	*/
	bool setData(const QModelIndex & index, const QVariant & value, int role = Qt::EditRole) override;
	Qt::ItemFlags flags(const QModelIndex & index) const override;
	QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

signals:
	/*! The user asks for property to get newValue (checked by its value type, different from
		the current value). The property keeps its value until the owner sets one.
	*/
	void valueEditRequested(QPB::Property * property, const QVariant & newValue);

private:
	friend class Property;

	/*! Called by properties around changes of the tree and of their rows. */
	void beginInsertChild(Property * parent, int row);
	void endInsertChild();
	void beginRemoveChildren(Property * parent, int first, int last);
	void endRemoveChildren();
	void propertyChanged(Property * property);
	/*! A property and all below it changed (enabled state). */
	void subtreeChanged(Property * property);

	std::unique_ptr<Property>	m_root;
};

} // namespace QPB

#endif // QPB_PropertyModelH
