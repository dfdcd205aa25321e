#ifndef OVP_StringListTypeH
#define OVP_StringListTypeH

#include <QCoreApplication>

#include <QPB_ValueType.h>

namespace OVP {

/*! Property value type of a list of texts (id "stringList", value QStringList), such as the date
	formats of an axis: shown joined with "; ", edited in a dialog with one entry per line. Empty
	entries are not accepted.
*/
class StringListType : public QPB::ValueType {
	Q_DECLARE_TR_FUNCTIONS(OVP::StringListType)
public:
	static constexpr const char * ID = "stringList";

	QString id() const override { return ID; }
	QString displayText(const QPB::Property & property) const override;
	QString check(const QPB::Property & property, const QVariant & value) const override;
	QWidget * createEditor(QWidget * parent, const QPB::Property & property) const override;
	void setEditorValue(QWidget * editor, const QPB::Property & property) const override;

protected:
	QVariant readEditor(QWidget * editor) const override;
};

} // namespace OVP

#endif // OVP_StringListTypeH
