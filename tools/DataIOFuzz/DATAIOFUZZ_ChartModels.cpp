#include "DATAIOFUZZ_ChartModels.h"

#include <memory>
#include <string>

#include <ZEB_Exception.h>
#include <ZEB_Unit.h>

#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>
#include <Sci_ColorGridSeriesDummyModel.h>

#include "DATAIOFUZZ_Checks.h"
#include "DATAIOFUZZ_XMLChecks.h"

namespace DATAIOFUZZ {

namespace {

/*! Line chart with three series of two points each. */
class LineModel : public SCI::AbstractLineSeriesModel {
public:
	unsigned int seriesCount() const override { return 3; }
	unsigned int size(int) const override { return 2; }
	const double * xValues(int) const override { return m_x; }
	const double * yValues(int) const override { return m_y; }
	ZEB::Unit xUnit(int) const override { return ZEB::Unit("h"); }
	ZEB::Unit yUnit(int) const override { return ZEB::Unit("C"); }
private:
	double	m_x[2] = {0, 1};
	double	m_y[2] = {20, 21};
};

/*! Vector field chart without a field. */
class VectorModel : public SCI::AbstractVectorFieldSeriesModel {
public:
	unsigned int seriesCount() const override { return 0; }
	unsigned int xGridSize(int) const override { return 0; }
	const double * xGrid(int) const override { return nullptr; }
	unsigned int yGridSize(int) const override { return 0; }
	const double * yGrid(int) const override { return nullptr; }
	const double * xComponents(int) const override { return nullptr; }
	const double * yComponents(int) const override { return nullptr; }
	ZEB::Unit xUnit(int) const override { return ZEB::Unit("m"); }
	ZEB::Unit yUnit(int) const override { return ZEB::Unit("m"); }
	ZEB::Unit valueUnit(int) const override { return ZEB::Unit("kg/m2s"); }
};

template <typename Model>
void readAndCopyModel(const ChartModels::Reader & read, const ChartModels::Copier & copy, const std::string & kind) {
	Model model;
	try {
		read(model);
	}
	catch (ZEB::Exception & ex) {
		Checks::checkError(ex);
		return;
	}
	Model back;
	try {
		copy(model, back);
	}
	catch (ZEB::Exception & ex) {
		Checks::fail("a " + kind + " chart that was read does not read back after writing:\n" + ex.msgWithOrigin());
	}
	XMLChecks::checkSameChart(model, back, kind);
}

} // namespace


void ChartModels::readAndCopy(const Reader & read, const Copier & copy) {
	readAndCopyModel<LineModel>(read, copy, "line");
	readAndCopyModel<SCI::ColorGridSeriesDummyModel>(read, copy, "colour grid");
	readAndCopyModel<VectorModel>(read, copy, "vector field");
}

} // namespace DATAIOFUZZ
