#ifndef OVP_ColorMapTypeH
#define OVP_ColorMapTypeH

#include <QCoreApplication>

#include <QPB_ValueType.h>

namespace OVP {

/*! Property value type of a colour map (id "colorMap", value SCI::ColorMap): shown as a gradient
	swatch and its kind, edited in a dialog with the chart library's colour-map editor, which
	also loads and saves colour-map files.
*/
class ColorMapType : public QPB::ValueType {
	Q_DECLARE_TR_FUNCTIONS(OVP::ColorMapType)
public:
	static constexpr const char * ID = "colorMap";

	QString id() const override { return ID; }
	QString displayText(const QPB::Property & property) const override;
	QIcon displayIcon(const QPB::Property & property) const override;
	QString check(const QPB::Property & property, const QVariant & value) const override;
	QWidget * createEditor(QWidget * parent, const QPB::Property & property) const override;
	void setEditorValue(QWidget * editor, const QPB::Property & property) const override;

protected:
	QVariant readEditor(QWidget * editor) const override;
};

} // namespace OVP

#endif // OVP_ColorMapTypeH
