#include "OVP_ExtractorAxisData.h"

#include <DATAIO_DataIO.h>

#include <Sci_AbstractCartesianChartModel.h>

#include <ZEB_Exception.h>

#include "OVP_Mapper.h"

namespace OVP {

QString ExtractorAxisData::replaceQuantity(const QString & title, const std::string & quantity) {
	if (quantity.empty())
		return title;
	QString result = title;
	return result.replace("$quantity", QString::fromStdString(quantity));
}


QDateTime ExtractorAxisData::dateTimeZero(const QDateTime & stored, const DATAIO::DataIO * container) {
	const QDateTime defaultZero(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC);
	if (stored != defaultZero || container == nullptr || container->startYear() == DATAIO::DataIO::UNSET_START_YEAR)
		return stored;
	const QDate start(container->startYear(), 1, 1);
	// years the calendar does not have (there is no year 0) count as unknown
	if (!start.isValid())
		return stored;
	return QDateTime(start, QTime(0, 0), Qt::UTC);
}



bool ExtractorAxisData::acceptsUnit(const Mapper & mapper, int axisPosition, const QVariant & value) {
	bool isNumber = false;
	const unsigned int unitId = value.toUInt(&isNumber);
	if (!isNumber)
		return true;
	try {
		mapper.checkAxisUnit(axisPosition, unitId);
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		return false;
	}
	return true;
}


bool ExtractorAxisData::setAxisData(Mapper & mapper, SCI::AbstractCartesianChartModel & model, const QVariant & value,
									int axisPosition, int role)
{
	typedef SCI::AbstractCartesianChartModel CM;
	if (role == CM::AxisUnit && !acceptsUnit(mapper, axisPosition, value))
		return false;
	const bool stored = model.CM::setAxisData(value, axisPosition, role);
	if (stored && role == CM::AxisUnit)
		mapper.applyAxisUnits();
	return stored;
}

} // namespace OVP
