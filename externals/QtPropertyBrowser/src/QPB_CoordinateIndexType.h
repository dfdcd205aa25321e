#ifndef QPB_CoordinateIndexTypeH
#define QPB_CoordinateIndexTypeH

#include <QCoreApplication>

#include "QPB_ValueType.h"

namespace QPB {

/*! The index (int) of one of a list of coordinate values, e.g. the time point or the position
	of a cut. The values are shown with their unit ("0.125 m") and chosen in a combo box; a time
	cut may offer "follow last time point" as first entry, which stands for the index -1.
*/
class CoordinateIndexType : public ValueType {
	Q_DECLARE_TR_FUNCTIONS(QPB::CoordinateIndexType)
public:
	static constexpr const char * ID = "coordinateIndex";

	/*! Attribute: the coordinate values (QVariantList of double). */
	static constexpr const char * Coordinates = "coordinates";
	/*! Attribute: the unit of the values (QString). */
	static constexpr const char * Unit = "unit";
	/*! Attribute: decimal places shown (int, default 6); trailing zeros are dropped. */
	static constexpr const char * Decimals = "decimals";
	/*! Attribute: true when "follow last time point" (index -1) is offered. */
	static constexpr const char * FollowLast = "followLast";

	/*! The index that follows the last time point. */
	static constexpr int FOLLOW_LAST = -1;

	QString id() const override { return ID; }
	QString displayText(const Property & property) const override;
	QString check(const Property & property, const QVariant & value) const override;
	QWidget * createEditor(QWidget * parent, const Property & property) const override;
	void setEditorValue(QWidget * editor, const Property & property) const override;

protected:
	QVariant readEditor(QWidget * editor) const override;

private:
	/*! The text of entry index of property (FOLLOW_LAST included); an index without a value
		is shown as such ("index 12").
	*/
	static QString entryText(const Property & property, int index);
};

} // namespace QPB

#endif // QPB_CoordinateIndexTypeH
