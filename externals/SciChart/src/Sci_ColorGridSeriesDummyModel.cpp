#include "Sci_ColorGridSeriesDummyModel.h"

namespace SCI {

ColorGridSeriesDummyModel::ColorGridSeriesDummyModel(QObject * parent) :
	AbstractColorGridSeriesModel(parent)
{
}


unsigned int ColorGridSeriesDummyModel::xGridSize(int seriesIndex) const {
	Q_ASSERT_X(false, "ColorGridSeriesDummyModel::xGridSize", "model has no grid");
	Q_UNUSED(seriesIndex)
	return 0;
}


const double * ColorGridSeriesDummyModel::xGrid(int seriesIndex) const {
	Q_ASSERT_X(false, "ColorGridSeriesDummyModel::xGrid", "model has no grid");
	Q_UNUSED(seriesIndex)
	return nullptr;
}


unsigned int ColorGridSeriesDummyModel::yGridSize(int seriesIndex) const {
	Q_ASSERT_X(false, "ColorGridSeriesDummyModel::yGridSize", "model has no grid");
	Q_UNUSED(seriesIndex)
	return 0;
}


const double * ColorGridSeriesDummyModel::yGrid(int seriesIndex) const {
	Q_ASSERT_X(false, "ColorGridSeriesDummyModel::yGrid", "model has no grid");
	Q_UNUSED(seriesIndex)
	return nullptr;
}


unsigned int ColorGridSeriesDummyModel::xValueSize(int seriesIndex) const {
	Q_ASSERT_X(false, "ColorGridSeriesDummyModel::xValueSize", "model has no grid");
	Q_UNUSED(seriesIndex)
	return 0;
}


unsigned int ColorGridSeriesDummyModel::yValueSize(int seriesIndex) const {
	Q_ASSERT_X(false, "ColorGridSeriesDummyModel::yValueSize", "model has no grid");
	Q_UNUSED(seriesIndex)
	return 0;
}


const double * ColorGridSeriesDummyModel::values(int seriesIndex) const {
	Q_ASSERT_X(false, "ColorGridSeriesDummyModel::values", "model has no grid");
	Q_UNUSED(seriesIndex)
	return nullptr;
}


ZEB::Unit ColorGridSeriesDummyModel::xUnit(int seriesIndex) const {
	Q_ASSERT_X(false, "ColorGridSeriesDummyModel::xUnit", "model has no grid");
	Q_UNUSED(seriesIndex)
	return ZEB::Unit();
}


ZEB::Unit ColorGridSeriesDummyModel::yUnit(int seriesIndex) const {
	Q_ASSERT_X(false, "ColorGridSeriesDummyModel::yUnit", "model has no grid");
	Q_UNUSED(seriesIndex)
	return ZEB::Unit();
}


ZEB::Unit ColorGridSeriesDummyModel::valueUnit(int seriesIndex) const {
	Q_ASSERT_X(false, "ColorGridSeriesDummyModel::valueUnit", "model has no grid");
	Q_UNUSED(seriesIndex)
	return ZEB::Unit();
}

} // namespace SCI
