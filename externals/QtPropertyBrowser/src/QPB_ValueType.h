#ifndef QPB_ValueTypeH
#define QPB_ValueTypeH

#include <QIcon>
#include <QString>
#include <QVariant>

class QWidget;

namespace QPB {

class Property;

/*! The behaviour of one kind of property value: how it is shown, which values are acceptable
	and why others are not, which editor edits it and how the value is read back from that
	editor. A value type holds no state of its own; everything specific to one property (range,
	names, unit) comes from the property's attributes. Types are registered in the
	ValueTypeFactory under their id().

	Editors check their content while the user types: an invalid content is tinted and the
	editor's tool tip says why (see QtExt::setInvalidMarking()).
*/
class ValueType {
public:
	virtual ~ValueType() = default;

	/*! The id under which the type is registered, e.g. "double". */
	virtual QString id() const = 0;

	/*! The value of property as text for the value column. */
	virtual QString displayText(const Property & property) const = 0;
	/*! An icon shown before the text (a colour swatch, an entry's icon); none by default. */
	virtual QIcon displayIcon(const Property & property) const;

	/*! Empty when value is acceptable for property, else a sentence saying why not. */
	virtual QString check(const Property & property, const QVariant & value) const = 0;

	/*! True when the value is toggled with a check box in the value column instead of an
		editor (bool).
	*/
	virtual bool isCheckable() const { return false; }

	/*! False when the value is not edited on its own (but perhaps through sub-properties);
		the editor functions are then never called.
	*/
	virtual bool hasEditor() const { return true; }
	/*! A new editor for property. */
	virtual QWidget * createEditor(QWidget * parent, const Property & property) const;
	/*! Shows the value of property in an editor made by createEditor(). */
	virtual void setEditorValue(QWidget * editor, const Property & property) const;
	/*! Reads the value from an editor made by createEditor() and checks it; returns an empty
		text and sets value, or returns why the editor's content is not acceptable (value is then
		untouched).
	*/
	QString editorValue(QWidget * editor, const Property & property, QVariant & value) const;

	/*! Creates the sub-properties of a compound value (none by default); called once when a
		property of this type is made.
	*/
	virtual void createSubProperties(Property & property) const;
	/*! Shows the parts of the value of property in its sub-properties. */
	virtual void updateSubProperties(Property & property) const;
	/*! The value of property with the part shown by sub-property row replaced by partValue. */
	virtual QVariant composeValue(const Property & property, int row, const QVariant & partValue) const;

protected:
	/*! Why the content of an editor made by createEditor() is no value at all (e.g. text in a
		number field); empty by default.
	*/
	virtual QString editorReason(QWidget * editor) const;
	/*! The value in an editor made by createEditor(), when editorReason() is empty. */
	virtual QVariant readEditor(QWidget * editor) const;

	/*! Appends a sub-property to a property of this type (for createSubProperties()). */
	static Property * addSubProperty(Property & property, const QString & name, const QString & typeId,
									 const QVariant & value);
	/*! Shows why an editor's content is invalid, or that it is valid (empty reason), by tint and
		tool tip.
	*/
	static void markEditor(QWidget * editor, const QString & reason);
};

} // namespace QPB

#endif // QPB_ValueTypeH
