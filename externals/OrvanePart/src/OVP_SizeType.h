#ifndef OVP_SizeTypeH
#define OVP_SizeTypeH

#include <QCoreApplication>

#include <QPB_ValueType.h>

namespace OVP {

/*! Property value type of a size in pixels (id "size", value QSize), such as the offset of a
	legend inside the chart: shown as "10 x 20 px" and edited through its parts width and
	height, whole numbers within the range of the attributes Minimum and Maximum (those of
	QPB::NumberType) that apply to both.
*/
class SizeType : public QPB::ValueType {
	Q_DECLARE_TR_FUNCTIONS(OVP::SizeType)
public:
	static constexpr const char * ID = "size";

	/*! Rows of the parts. */
	enum SubProperty {
		SP_Width,
		SP_Height
	};

	QString id() const override { return ID; }
	QString displayText(const QPB::Property & property) const override;
	QString check(const QPB::Property & property, const QVariant & value) const override;
	bool hasEditor() const override { return false; }
	void createSubProperties(QPB::Property & property) const override;
	void updateSubProperties(QPB::Property & property) const override;
	QVariant composeValue(const QPB::Property & property, int row, const QVariant & partValue) const override;
};

} // namespace OVP

#endif // OVP_SizeTypeH
