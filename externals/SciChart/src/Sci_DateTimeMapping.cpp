#include "Sci_DateTimeMapping.h"

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_UnitList.h>

#include "Sci_AbstractLineSeriesModel.h"

namespace SCI {

DateTimeMapping::DateTimeMapping() :
	DateTimeMapping(QDateTime(QDate(2000, 1, 1), QTime(0, 0), Qt::UTC), 1000, Qt::UTC)
{
}


DateTimeMapping::DateTimeMapping(const QDateTime & zero, double msecsPerUnit, int timeSpec) :
	m_zeroMSecs(static_cast<double>(zero.toMSecsSinceEpoch())),
	m_msecsPerUnit(msecsPerUnit),
	m_timeSpec(Qt::UTC),
	m_utcOffset(0)
{
	switch (timeSpec) {
		case Qt::LocalTime :	m_timeSpec = Qt::LocalTime; break;
		case Qt::UTC :			m_timeSpec = Qt::UTC; break;
		default :
			// fixed offsets and time zones are shown with the offset the zero has
			m_timeSpec = Qt::OffsetFromUTC;
			m_utcOffset = zero.offsetFromUtc();
	}
}


QDateTime DateTimeMapping::toDateTime(double axisValue) const {
	const qint64 msecs = static_cast<qint64>(qRound64(toMSecs(axisValue)));
	return QDateTime::fromMSecsSinceEpoch(msecs, m_timeSpec, m_utcOffset);
}


double DateTimeMapping::msecsPerUnit(const ZEB::Unit & unit) {
	FUNCID(DateTimeMapping::msecsPerUnit);
	double factor = 0;
	ZEB::UnitData::Operation op = ZEB::UnitData::OP_MUL;
	try {
		ZEB::UnitList::instance().relate_units(unit, ZEB::Unit("ms"), factor, op);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, ZEB::MessageFormat("Unit '%1' is not a time unit, cannot show date labels.")
							 .arg(unit.name()), FUNC_ID);
	}
	if (op == ZEB::UnitData::OP_MUL && factor > 0)
		return factor;
	if (op == ZEB::UnitData::OP_DIV && factor > 0)
		return 1/factor;
	throw ZEB::Exception(ZEB::MessageFormat("Unit '%1' cannot be used for date labels.").arg(unit.name()), FUNC_ID);
}


DateTimeMapping DateTimeMapping::ofAxis(const AbstractCartesianChartModel & model, int axisPosition) {
	typedef AbstractCartesianChartModel CM;
	ZEB::Unit unit(model.axisData(axisPosition, CM::AxisUnit).toUInt());
	const AbstractLineSeriesModel * lineModel = dynamic_cast<const AbstractLineSeriesModel *>(&model);
	if (unit.id() == 0 && lineModel != nullptr && lineModel->seriesCount() > 0 && axisPosition == CM::BottomAxis)
		unit = lineModel->xUnit(0);
	return DateTimeMapping(model.axisData(axisPosition, CM::AxisDateTimeZero).toDateTime(), msecsPerUnit(unit),
						   model.axisData(axisPosition, CM::AxisDateTimeSpec).toInt());
}

} // namespace SCI
