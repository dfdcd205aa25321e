#ifndef OVP_ExtractorAxisDataH
#define OVP_ExtractorAxisDataH

#include <string>

#include <QDateTime>
#include <QString>
#include <QVariant>

namespace DATAIO {
class DataIO;
}

namespace SCI {
class AbstractCartesianChartModel;
}

namespace OVP {

class Mapper;

/*! The axis properties that the series models take from the extracted data instead of the
	stored chart properties: the quantity name in axis titles and the date of the time zero;
	and the check of a new axis unit against the data.
*/
class ExtractorAxisData {
public:
	/*! The title with every "$quantity" replaced by the quantity name; an empty name leaves the
		placeholder in the text.
	*/
	static QString replaceQuantity(const QString & title, const std::string & quantity);

	/*! The date-time zero of an axis: the stored value when the user set one (it differs from
		the default 2000-01-01 00:00 UTC); else 1 January, 00:00 UTC, of the start year of the
		container (the first container of the first extractor), so that a date axis counts from
		the start of the simulation. Without container or with an unknown start year the
		stored value is kept.
	*/
	static QDateTime dateTimeZero(const QDateTime & stored, const DATAIO::DataIO * container);

	/*! True when an axis of the mapper's chart may take the unit id in value (see
		Mapper::checkAxisUnit()); otherwise the reason is reported as error. A value that is no
		number is left to the chart model's own check.
	*/
	static bool acceptsUnit(const Mapper & mapper, int axisPosition, const QVariant & value);

	/*! Stores an axis property of the chart model of mapper, as the Cartesian model stores it; a
		unit is checked first (acceptsUnit()) and then becomes the target unit of the extractors,
		whose output is converted. Returns whether the value was stored.
	*/
	static bool setAxisData(Mapper & mapper, SCI::AbstractCartesianChartModel & model, const QVariant & value,
							int axisPosition, int role);
};

} // namespace OVP

#endif // OVP_ExtractorAxisDataH
