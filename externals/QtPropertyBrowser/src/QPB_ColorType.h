#ifndef QPB_ColorTypeH
#define QPB_ColorTypeH

#include <utility>
#include <vector>

#include <QColor>
#include <QCoreApplication>

#include "QPB_ValueType.h"

namespace QPB {

/*! A colour (QColor), shown with a swatch and by name when it is one of the named colours,
	else as "#rrggbb" ("#aarrggbb" when partly transparent). The editor is a ColorComboBox: the
	named colours and "Other...", which opens the colour dialog.
*/
class ColorType : public ValueType {
	Q_DECLARE_TR_FUNCTIONS(QPB::ColorType)
public:
	static constexpr const char * ID = "color";

	/*! Attribute: true when the colour may be partly transparent (the dialog offers alpha). */
	static constexpr const char * Alpha = "alpha";

	/*! The named colours offered, with their translated names. */
	static std::vector<std::pair<QString, QColor>> namedColors();
	/*! The name of color: a named colour's name, else its hex code. */
	static QString colorText(const QColor & color);
	/*! A small framed square filled with color. */
	static QIcon swatch(const QColor & color);

	QString id() const override { return ID; }
	QString displayText(const Property & property) const override;
	QIcon displayIcon(const Property & property) const override;
	QString check(const Property & property, const QVariant & value) const override;
	QWidget * createEditor(QWidget * parent, const Property & property) const override;
	void setEditorValue(QWidget * editor, const Property & property) const override;

protected:
	QVariant readEditor(QWidget * editor) const override;
};

} // namespace QPB

#endif // QPB_ColorTypeH
