#ifndef QPB_FontTypeH
#define QPB_FontTypeH

#include <QCoreApplication>
#include <QFont>

#include "QPB_ValueType.h"

namespace QPB {

/*! A font (QFont), shown as "Family, 10 pt, bold, italic" and chosen in the font dialog
	(FontEditor); the sub-properties family, size (points), bold and italic edit its parts.
*/
class FontType : public ValueType {
	Q_DECLARE_TR_FUNCTIONS(QPB::FontType)
public:
	static constexpr const char * ID = "font";

	/*! Rows of the sub-properties. */
	enum SubProperty {
		SP_Family,
		SP_Size,
		SP_Bold,
		SP_Italic
	};

	/*! The text that shows font. */
	static QString fontText(const QFont & font);

	QString id() const override { return ID; }
	QString displayText(const Property & property) const override;
	QString check(const Property & property, const QVariant & value) const override;
	QWidget * createEditor(QWidget * parent, const Property & property) const override;
	void setEditorValue(QWidget * editor, const Property & property) const override;
	void createSubProperties(Property & property) const override;
	void updateSubProperties(Property & property) const override;
	QVariant composeValue(const Property & property, int row, const QVariant & partValue) const override;

protected:
	QVariant readEditor(QWidget * editor) const override;
};

} // namespace QPB

#endif // QPB_FontTypeH
