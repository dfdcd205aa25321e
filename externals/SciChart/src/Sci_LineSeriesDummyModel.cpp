#include "Sci_LineSeriesDummyModel.h"

namespace SCI {

LineSeriesDummyModel::LineSeriesDummyModel(QObject * parent) :
	AbstractLineSeriesModel(parent)
{
}


unsigned int LineSeriesDummyModel::size(int seriesIndex) const {
	Q_ASSERT_X(false, "LineSeriesDummyModel::size", "model has no series");
	Q_UNUSED(seriesIndex)
	return 0;
}


const double * LineSeriesDummyModel::xValues(int seriesIndex) const {
	Q_ASSERT_X(false, "LineSeriesDummyModel::xValues", "model has no series");
	Q_UNUSED(seriesIndex)
	return nullptr;
}


const double * LineSeriesDummyModel::yValues(int seriesIndex) const {
	Q_ASSERT_X(false, "LineSeriesDummyModel::yValues", "model has no series");
	Q_UNUSED(seriesIndex)
	return nullptr;
}


ZEB::Unit LineSeriesDummyModel::xUnit(int seriesIndex) const {
	Q_ASSERT_X(false, "LineSeriesDummyModel::xUnit", "model has no series");
	Q_UNUSED(seriesIndex)
	return ZEB::Unit();
}


ZEB::Unit LineSeriesDummyModel::yUnit(int seriesIndex) const {
	Q_ASSERT_X(false, "LineSeriesDummyModel::yUnit", "model has no series");
	Q_UNUSED(seriesIndex)
	return ZEB::Unit();
}

} // namespace SCI
