#ifndef QPB_PropertyH
#define QPB_PropertyH

#include <memory>
#include <vector>

#include <QString>
#include <QVariant>
#include <QVariantMap>

namespace QPB {

class PropertyModel;
class ValueType;

/*! One node of a property tree: a name, a tool tip, an enabled state and either a value of a
	value type (with the type's attributes, such as a range or a list of names) or, for a group,
	no value at all. A node owns its children.

	A value of a compound type (font, pen) is shown with sub-properties that its value type
	creates; they display parts of the value, and an edit of a part is an edit of the whole.

	While the node belongs to a PropertyModel, every change is shown at once. setValue() only
	changes what is displayed: edits by the user never come here but reach the owner as requests
	(PropertyModel::valueEditRequested()).
*/
class Property {
public:
	/*! A group node: a name and children, no value. */
	explicit Property(const QString & name);
	/*! A node with a value of the type registered under typeId (see ValueTypeFactory); throws
		ZEB::Exception for an unknown type. Attributes can be set afterwards.
	*/
	Property(const QString & name, const QString & typeId, const QVariant & value);
	~Property();

	Property(const Property &) = delete;
	Property & operator=(const Property &) = delete;

	const QString & name() const { return m_name; }
	void setName(const QString & name);

	const QString & toolTip() const { return m_toolTip; }
	void setToolTip(const QString & toolTip);

	/*! False when the node itself is disabled; see isEffectivelyEnabled(). */
	bool isEnabled() const { return m_enabled; }
	void setEnabled(bool enabled);
	/*! True when the node and all its parents are enabled. */
	bool isEffectivelyEnabled() const;

	/*! True for a group node (no value type). */
	bool isGroup() const { return m_type == nullptr; }
	/*! The value type; nullptr for a group. */
	const ValueType * type() const { return m_type; }

	const QVariant & value() const { return m_value; }
	/*! Shows a new value (also in the sub-properties); never emits an edit request. */
	void setValue(const QVariant & value);

	/*! A value the property has unless changed; a property whose value differs from it is
		marked as modified. Without a default value nothing is marked.
	*/
	void setDefaultValue(const QVariant & value);
	/*! True when a default value was set and the value differs from it. */
	bool isModified() const;

	/*! A type attribute (e.g. NumberType::Minimum), or defaultValue when it is not set. */
	QVariant attribute(const QString & key, const QVariant & defaultValue = QVariant()) const;
	/*! Sets a type attribute; the display and the sub-properties follow it. */
	void setAttribute(const QString & key, const QVariant & value);

	/*! Free data of the owner, e.g. the role that the property edits. */
	const QVariant & tag() const { return m_tag; }
	void setTag(const QVariant & tag) { m_tag = tag; }

	Property * parent() const { return m_parent; }
	int childCount() const { return static_cast<int>(m_children.size()); }
	Property * child(int row) const { return m_children[static_cast<size_t>(row)].get(); }
	/*! The row of this node below its parent; 0 for a node without parent. */
	int row() const;
	/*! True for a part of a compound value, created by the parent's value type. */
	bool isSubProperty() const { return m_subProperty; }

	/*! Appends a child and returns it. */
	Property * addChild(std::unique_ptr<Property> child);
	/*! Appends a new group child. */
	Property * addGroup(const QString & name);
	/*! Appends a new child with a value; throws ZEB::Exception for an unknown type. */
	Property * addChild(const QString & name, const QString & typeId, const QVariant & value);
	/*! Removes and deletes all children that are no sub-properties. */
	void clearChildren();

	/*! The model the node belongs to, or nullptr. */
	PropertyModel * model() const { return m_model; }

private:
	friend class PropertyModel;
	friend class ValueType;

	/*! Joins the node and its children to model (or takes them out with nullptr). */
	void setModel(PropertyModel * model);
	/*! Tells the model that the node's row shows something new. */
	void notifyChanged();
	/*! Lets the value type show the value in the sub-properties. */
	void updateSubProperties();

	QString			m_name;
	QString			m_toolTip;
	bool			m_enabled = true;
	const ValueType *	m_type = nullptr;
	QVariant		m_value;
	QVariant		m_defaultValue;
	QVariantMap		m_attributes;
	QVariant		m_tag;
	bool			m_subProperty = false;
	Property *		m_parent = nullptr;
	PropertyModel *	m_model = nullptr;
	std::vector<std::unique_ptr<Property>>	m_children;
};

} // namespace QPB

Q_DECLARE_METATYPE(QPB::Property *)

#endif // QPB_PropertyH
