#ifndef OVP_IsoplethLinesTypeH
#define OVP_IsoplethLinesTypeH

#include <QCoreApplication>

#include <QPB_ValueType.h>

namespace OVP {

/*! Property value type of the isopleth lines a model evaluates (id "isoplethLines"). The value
	is the name of the line set in use, empty for the model's default lines; the editor's dialog
	chooses the default lines (an empty text) or a table file of another substrate class (its
	path), which the data-set page reads.
*/
class IsoplethLinesType : public QPB::ValueType {
	Q_DECLARE_TR_FUNCTIONS(OVP::IsoplethLinesType)
public:
	static constexpr const char * ID = "isoplethLines";

	QString id() const override { return ID; }
	QString displayText(const QPB::Property & property) const override;
	/*! A path other than the current set's name must name an existing file. */
	QString check(const QPB::Property & property, const QVariant & value) const override;
	QWidget * createEditor(QWidget * parent, const QPB::Property & property) const override;
	void setEditorValue(QWidget * editor, const QPB::Property & property) const override;

protected:
	QVariant readEditor(QWidget * editor) const override;
};

} // namespace OVP

#endif // OVP_IsoplethLinesTypeH
