#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <ZEB_UnitVector.h>

#include <EM_Extractor2DFrom2D.h>
#include <EM_Extractor2DFromReference.h>
#include <EM_Extractor2DFromTwo2D.h>
#include <EM_ExtractorFactory.h>
#include <EM_Factory.h>
#include <EM_Manipulator2DOffset.h>
#include <EM_Manipulator2DScaling.h>
#include <EM_ModelTwo2DViitanenMould.h>

#include "EM_ExtractorTestUtils.h"
#include "EM_TestUtils.h"

using EMTest::MessageRecorder;
using EMTest::container2D;
using EMTest::expectError;
using EMTest::sameBits;
using EMTest::setTargetUnits;

namespace {

const double NaN = std::numeric_limits<double>::quiet_NaN();

/*! A manipulator that is no 2D manipulator. */
class OtherManipulator : public EM::ManipulatorBase {
public:
	ManipulatorType type() const override { return NUM_MT; }
	const char * typeKeyword() const override { return "Other"; }
	std::string parameter() const override { return std::string(); }
	void setFromParameter(const std::string &) override {}
	void apply(ZEB::UnitVector &, ZEB::UnitVector & y) const override { y.m_data.assign(y.size(), 0.0); }
};

/*! A 2D extractor of the container with the given target units. */
std::unique_ptr<EM::Extractor2DFrom2D> extractor(DATAIO::DataIO & d, const char * xUnit, const char * valueUnit) {
	std::unique_ptr<EM::Extractor2DFrom2D> e(new EM::Extractor2DFrom2D(&d));
	setTargetUnits(*e, xUnit, valueUnit);
	return e;
}

} // namespace


TEST(EMExtractorBase, CanUpdateReportsEachCheckInOrder) {
	MessageRecorder rec;
	std::unique_ptr<DATAIO::DataIO> d = container2D({ 0, 1, 2 }, { 20, 21, 22 });
	EM::Extractor2DFrom2D e(d.get());
	const std::string where = "[ExtractorBase::canUpdate]";
	// each step leaves several faults; only the first in check order is reported
	auto expectOnly = [&](const std::string & msg, const std::string & origin) {
		rec.m_messages.clear();
		EXPECT_FALSE(e.canUpdate());
		ASSERT_EQ(rec.errors().size(), 1u) << msg;
		EXPECT_EQ(rec.errors()[0].m_text, msg);
		EXPECT_EQ(rec.errors()[0].m_where, origin);
	};
	d->setTimeUnit("hours");
	d->setValueUnit("Celsius");
	d->setFilename("");
	d->setQuantity("");
	expectOnly("Target x-coordinate unit not set.", where);
	e.setTargetXUnit(ZEB::Unit("h"));
	expectOnly("Target value unit not set.", where);
	e.setTargetValueUnit(ZEB::Unit("K"));
	expectOnly("Expected valid unit string (according to ZEB unit definition) for time unit in DataIO container.", where);
	d->setTimeUnit("m");
	expectOnly("Expected valid time unit (convertible to seconds) in DataIO container.", where);
	d->setTimeUnit("d");
	expectOnly("Expected valid unit string (according to ZEB unit definition) for value unit in DataIO container.", where);
	d->setValueUnit("%");
	expectOnly("Incompatible value units in DataIO and Extractor: % <-> K.", where);
	d->setValueUnit("C");
	expectOnly("Expected m_filename attribute in DataIO container.", where);
	d->setFilename("a.d6o");
	expectOnly("Expected m_quantity attribute in DataIO container.", where);
	d->setQuantity("Temperature");

	// the extractor's own checks follow the common ones
	d->setDataFormat(DATAIO::DataIO::DF_3D);
	expectOnly("Mismatching data format (expected 2D). Has output data format changed?", "[Extractor2DFrom2D::canUpdate]");
	d->setDataFormat(DATAIO::DataIO::DF_2D);
	e.setTargetXUnit(ZEB::Unit("mm"));
	expectOnly("Mismatching target unit for x-coordinate. Expected a time unit, requested is 'mm'.", "[Extractor2DFrom2D::canUpdate]");
	e.setTargetXUnit(ZEB::Unit("s"));
	rec.m_messages.clear();
	EXPECT_TRUE(e.canUpdate());
	EXPECT_TRUE(rec.m_messages.empty());
}


TEST(EMExtractorBase, EmptyContainerWaitsQuietlyUntilValuesArrive) {
	MessageRecorder rec;
	std::unique_ptr<DATAIO::DataIO> d = container2D({}, {});
	std::unique_ptr<EM::Extractor2DFrom2D> e = extractor(*d, "h", "C");
	e->update();
	EXPECT_EQ(e->status(), EM::ExtractorBase::US_Waiting);
	EXPECT_TRUE(rec.errors().empty());
	ASSERT_EQ(rec.m_messages.size(), 2u);
	EXPECT_EQ(rec.m_messages[0].m_text, "Updating from 'series.d6o'\n");
	EXPECT_EQ(rec.m_messages[0].m_where, "[ExtractorBase::update]");
	EXPECT_EQ(rec.m_messages[1].m_text, "DataIO container is (still) empty/no time points, yet. Delaying update of "
			  "extractor until DataIO container has values.\n");
	EXPECT_EQ(rec.m_messages[1].m_type, ZEB::MSG_PROGRESS);
	EXPECT_EQ(rec.m_messages[1].m_where, "[ExtractorBase::canUpdate]");
	EXPECT_TRUE(e->outputName().empty());
	// the empty series is in the target units, so that a chart can show it until values arrive
	EXPECT_TRUE(e->y().empty());
	EXPECT_EQ(e->x().m_unit, ZEB::Unit("h"));
	EXPECT_EQ(e->y().m_unit, ZEB::Unit("C"));

	d->setData({ 0, 1 }, { { 5 }, { 6 } });
	e->update();
	EXPECT_EQ(e->status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_EQ(e->y().m_data, std::vector<double>({ 5, 6 }));
	EXPECT_EQ(e->outputName(), "Temperature");

	// time points without values per time point
	d->setNums({});
	d->setData({ 0 }, { {} });
	rec.m_messages.clear();
	std::unique_ptr<EM::Extractor2DFrom2D> e2 = extractor(*d, "h", "C");
	e2->update();
	EXPECT_TRUE(rec.errors().empty());
	EXPECT_TRUE(rec.has(ZEB::MSG_PROGRESS, "DataIO container is (still) empty (NUMS array empty). Delaying update of "
						"extractor until DataIO container has values.\n", "[ExtractorBase::canUpdate]"));
	EXPECT_EQ(e2->status(), EM::ExtractorBase::US_Waiting);
}


TEST(EMExtractorBase, UnitConversionAndShift) {
	MessageRecorder rec;
	std::unique_ptr<DATAIO::DataIO> d = container2D({ -0.0, 12, 24 }, { 20, -5.5, NaN }, "h", "C");
	std::unique_ptr<EM::Extractor2DFrom2D> e = extractor(*d, "h", "C");
	e->update();
	ASSERT_EQ(e->status(), EM::ExtractorBase::US_UpToDate);
	// same units and no shift: the container's data bit for bit, -0 included
	EXPECT_TRUE(sameBits(e->x().m_data, d->timePoints()));
	EXPECT_TRUE(std::signbit(e->x()[0]));

	setTargetUnits(*e, "d", "K");
	e->setXShift(0.25);
	e->update();
	ASSERT_EQ(e->status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_EQ(e->x().m_unit, ZEB::Unit("d"));
	EXPECT_EQ(e->x().m_data, std::vector<double>({ 0.25, 0.75, 1.25 }));
	EXPECT_EQ(e->y().m_unit, ZEB::Unit("K"));
	ASSERT_EQ(e->y().size(), 3u);
	EXPECT_DOUBLE_EQ(e->y()[0], 293.15);
	EXPECT_DOUBLE_EQ(e->y()[1], 267.65);
	EXPECT_TRUE(std::isnan(e->y()[2]));
	// the extracted series keep the container's units
	EXPECT_EQ(e->extractedX().m_unit, ZEB::Unit("h"));
	EXPECT_EQ(e->extractedY().m_data[1], -5.5);

	// a change of target units needs only the conversion step
	e->setTargetValueUnit(ZEB::Unit("C"));
	e->convertUnits();
	EXPECT_EQ(e->y()[0], 20);
	e->setTargetValueUnit(ZEB::Unit("K"));

	// units as the container gives them, names and units of the output
	EXPECT_EQ(e->axisUnitFromDataIO(0), ZEB::Unit("h"));
	EXPECT_EQ(e->axisUnitFromDataIO(1), ZEB::Unit("C"));
	expectError([&]() { e->axisUnitFromDataIO(2); }, "Invalid axis requested.", "[Extractor2DOutputBase::axisUnitFromDataIO]");
	EXPECT_EQ(e->information(EM::ExtractorBase::IT_Unit, EM::ExtractorBase::ODT_X), "d");
	EXPECT_EQ(e->information(EM::ExtractorBase::IT_Name, EM::ExtractorBase::ODT_X), "Time");
	EXPECT_EQ(e->information(EM::ExtractorBase::IT_Name, EM::ExtractorBase::ODT_Y), "Temperature");
	expectError([&]() { e->information(EM::ExtractorBase::NUM_IT, EM::ExtractorBase::ODT_X); },
				"Invalid data information type.", "[Extractor2DOutputBase::information]");
	expectError([&]() { e->information(EM::ExtractorBase::IT_Unit, EM::ExtractorBase::ODT_Values); },
				"Invalid data information type (OutputDataTypes).", "[Extractor2DOutputBase::information]");
}


TEST(EMExtractorBase, ManipulatorsRunBeforeConversionInListOrder) {
	MessageRecorder rec;
	std::unique_ptr<DATAIO::DataIO> d = container2D({ 0, 1, 2 }, { 10, 20, 30 }, "h", "C");
	std::unique_ptr<EM::Extractor2DFrom2D> e = extractor(*d, "h", "K");
	std::unique_ptr<EM::Manipulator2DOffset> offset(new EM::Manipulator2DOffset);
	offset->setOffset(1);
	std::unique_ptr<EM::Manipulator2DScaling> scaling(new EM::Manipulator2DScaling);
	scaling->setFactor(2);
	e->addManipulator(std::move(offset));
	e->addManipulator(std::move(scaling));
	e->update();
	ASSERT_EQ(e->status(), EM::ExtractorBase::US_UpToDate);
	// (y + 1)*2 in C, then to K: scaling in K or the other order would give other numbers
	EXPECT_EQ(e->extractedY().m_data, std::vector<double>({ 22, 42, 62 }));
	EXPECT_DOUBLE_EQ(e->y()[0], 295.15);
	EXPECT_DOUBLE_EQ(e->y()[2], 335.15);

	// neutral manipulators leave every bit as it is
	const std::vector<double> awkward = { NaN, -0.0, 4.9e-324, -1e308, 1.0/3 };
	std::unique_ptr<DATAIO::DataIO> d2 = container2D({ 0, 1, 2, 3, 4 }, awkward, "h", "C");
	std::unique_ptr<EM::Extractor2DFrom2D> e2 = extractor(*d2, "h", "C");
	e2->addManipulator(EM::Factory::createManipulator("2DScaling"));
	e2->addManipulator(EM::Factory::createManipulator("2DOffset"));
	e2->update();
	ASSERT_EQ(e2->status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_TRUE(sameBits(e2->y().m_data, awkward));

	// a manipulator that is no 2D manipulator fails the update and clears the output
	e->addManipulator(std::unique_ptr<EM::ManipulatorBase>(new OtherManipulator));
	rec.m_messages.clear();
	e->update();
	EXPECT_EQ(e->status(), EM::ExtractorBase::US_Waiting);
	const std::vector<EMTest::RecordedMessage> errors = rec.errors();
	ASSERT_EQ(errors.size(), 2u);
	EXPECT_EQ(errors[0].m_text, "Invalid manipulator associated with extractor.");
	EXPECT_EQ(errors[0].m_where, "[Extractor2DFrom2D::doUpdate]");
	EXPECT_EQ(errors[1].m_text, "Update from DataIO failed.");
	EXPECT_EQ(errors[1].m_where, "[ExtractorBase::update]");
	EXPECT_TRUE(e->y().empty());
	EXPECT_TRUE(e->extractedY().empty());

	e->removeManipulator(2);
	e->update();
	EXPECT_EQ(e->status(), EM::ExtractorBase::US_UpToDate);
	expectError([&]() { e->removeManipulator(2); }, "Invalid manipulator index 2.", "[ExtractorBase::removeManipulator]");
}


TEST(EMExtractorBase, StatusAndOutputName) {
	MessageRecorder rec;
	std::unique_ptr<DATAIO::DataIO> d = container2D({ 0, 1, 2 }, { 1, 2, 3 });
	std::unique_ptr<EM::Extractor2DFrom2D> e = extractor(*d, "h", "C");
	e->setOutputName("Inside surface");
	EXPECT_EQ(e->status(), EM::ExtractorBase::US_Waiting);
	e->update();
	EXPECT_EQ(e->status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_EQ(e->outputName(), "Inside surface");

	// a container that is empty again (re-read while a simulation restarts) keeps the last output
	d->setData({}, {});
	e->update();
	EXPECT_EQ(e->status(), EM::ExtractorBase::US_NotUpdatableAfterUpToDate);
	EXPECT_EQ(e->y().m_data, std::vector<double>({ 1, 2, 3 }));

	// failing access: the whole chain is reported, the output is cleared, the status waits
	d->setData({ 0, 2, 1 }, { { 1 }, { 2 }, { 3 } });
	rec.m_messages.clear();
	e->update();
	EXPECT_EQ(e->status(), EM::ExtractorBase::US_Waiting);
	const std::vector<EMTest::RecordedMessage> errors = rec.errors();
	ASSERT_EQ(errors.size(), 3u);
	EXPECT_EQ(errors[0].m_where, "[DataIO::dataVector]");
	EXPECT_EQ(errors[2].m_text, "Update from DataIO failed.");
	EXPECT_TRUE(e->y().empty());

	d->setData({ 0, 1 }, { { 7 }, { 8 } });
	e->update();
	EXPECT_EQ(e->status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_EQ(e->y().m_data, std::vector<double>({ 7, 8 }));

	// no cut: no cut dimension
	expectError([&]() { e->setCutIndex(EM::CD_Time, 1, false); },
				"Dimension 3 is not cut by this extractor.", "[ExtractorBase::setCutIndex]");
}


TEST(EMExtractorBase, ReferenceColumn) {
	MessageRecorder rec;
	std::unique_ptr<DATAIO::DataIO> ref2D = EMTest::fieldContainer({ 3, 7, 5 }, { 0, 60 }, { { 1, 2, 3 }, { 4, 5, 6 } },
		DATAIO::DataIO::DF_2D, DATAIO::DataIO::T_REFERENCE, "kg/s", "s");
	DATAIO::DataIO & d = *ref2D;

	std::unique_ptr<EM::ExtractorBase> e = EM::ExtractorFactory::createExtractor(&d, EM::CT_NoCut, nullptr, 7);
	EM::Extractor2DFromReference * ref = dynamic_cast<EM::Extractor2DFromReference *>(e.get());
	ASSERT_NE(ref, nullptr);
	e->setTargetXUnit(ZEB::Unit("min"));
	e->update();
	ASSERT_EQ(e->status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_EQ(ref->x().m_data, std::vector<double>({ 0, 1 }));
	EXPECT_EQ(ref->y().m_data, std::vector<double>({ 2, 5 }));

	// a data file reader's collection: each column has its own quantity and unit, and a gap
	d.setColumnProperties({ "Supply", "Room", "Exhaust" }, { "kg/s", "C", "kg/h" });
	d.setData({ 0, 60 }, { { 1, 20, 3 }, { 4, NaN, 6 } });
	std::unique_ptr<EM::ExtractorBase> room = EM::ExtractorFactory::createExtractor(&d, EM::CT_NoCut, nullptr, 7);
	std::unique_ptr<EM::ExtractorBase> exhaust = EM::ExtractorFactory::createExtractor(&d, EM::CT_NoCut, nullptr, 5);
	EXPECT_EQ(room->targetValueUnit(), ZEB::Unit("C"));
	EXPECT_EQ(exhaust->axisUnitFromDataIO(1), ZEB::Unit("kg/h"));
	room->setTargetValueUnit(ZEB::Unit("K"));
	exhaust->setTargetValueUnit(ZEB::Unit("kg/s"));
	room->update();
	exhaust->update();
	EXPECT_EQ(room->information(EM::ExtractorBase::IT_Name, EM::ExtractorBase::ODT_Y), "Room");
	const ZEB::UnitVector & roomY = dynamic_cast<EM::Extractor2DOutputBase &>(*room).y();
	ASSERT_EQ(roomY.size(), 2u);
	EXPECT_DOUBLE_EQ(roomY[0], 293.15);
	EXPECT_TRUE(std::isnan(roomY[1]));
	EXPECT_EQ(dynamic_cast<EM::Extractor2DOutputBase &>(*exhaust).y().m_data, std::vector<double>({ 3/3600.0, 6/3600.0 }));
	// a column's unit is checked against the target, not the container's
	exhaust->setTargetValueUnit(ZEB::Unit("C"));
	EXPECT_TRUE(rec.updateFails(*exhaust, "Incompatible value units in DataIO and Extractor: kg/h <-> C.", "[ExtractorBase::canUpdate]"));

	EM::Extractor2DFromReference missing(&d, 4);
	setTargetUnits(missing, "s", "kg/s");
	EXPECT_TRUE(rec.updateFails(missing, "Given column is not in DataIO container.", "[Extractor2DFromReference::canUpdate]"));
}


TEST(EMExtractorBase, ModelExtractorGivesTheModelsResult) {
	MessageRecorder rec;
	const std::size_t n = 24*90;
	std::vector<double> time(n), T(n), RH(n);
	for (std::size_t i = 0; i < n; ++i) {
		time[i] = static_cast<double>(i);
		T[i] = 20 + 5*std::sin(i*0.26);
		RH[i] = 90 + 8*std::sin(i*0.1);
	}
	std::unique_ptr<DATAIO::DataIO> t = container2D(time, T, "h", "C");
	std::unique_ptr<DATAIO::DataIO> rh = container2D(time, RH, "h", "%");

	EM::ModelTwo2DViitanenMould reference;
	ZEB::UnitVector x, y;
	const std::uint32_t single = EM::ModelTwo2DBase::SINGLE_VALUE;
	reference.calculate(t.get(), single, rh.get(), single, x, y);
	ASSERT_GT(y.m_data.back(), 0);

	std::unique_ptr<EM::ExtractorBase> e = EM::ExtractorFactory::createExtractor(t.get(), rh.get(),
		EM::Factory::createModel("VTTMouldModel"));
	EM::Extractor2DFromTwo2D & e2 = dynamic_cast<EM::Extractor2DFromTwo2D &>(*e);
	e->update();
	ASSERT_EQ(e->status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_TRUE(rec.errors().empty());
	EXPECT_EQ(e2.x().m_unit, x.m_unit);
	EXPECT_EQ(e2.x().m_data, x.m_data);
	EXPECT_EQ(e2.y().m_data, y.m_data);
	EXPECT_EQ(e->information(EM::ExtractorBase::IT_Name, EM::ExtractorBase::ODT_Y), reference.valueLabel());

	// inputs that do not overlap in time: an empty result, no error
	std::vector<double> later(time);
	for (double & v : later)
		v += 1e5;
	std::unique_ptr<DATAIO::DataIO> rhLater = container2D(later, RH, "h", "%");
	std::unique_ptr<EM::ExtractorBase> apart = EM::ExtractorFactory::createExtractor(t.get(), rhLater.get(),
		EM::Factory::createModel("VTTMouldModel"));
	rec.m_messages.clear();
	apart->update();
	EXPECT_EQ(apart->status(), EM::ExtractorBase::US_UpToDate);
	EXPECT_TRUE(rec.errors().empty());
	EXPECT_TRUE(dynamic_cast<EM::Extractor2DOutputBase &>(*apart).x().empty());
	EXPECT_TRUE(dynamic_cast<EM::Extractor2DOutputBase &>(*apart).y().empty());

	// one container only
	EM::Extractor2DFromTwo2D one(std::vector<DATAIO::DataIO *>(1, t.get()), EM::Factory::createModel("VTTMouldModel"),
								 { single, single });
	setTargetUnits(one, "d", "-");
	EXPECT_TRUE(rec.updateFails(one, "Extractor2DFromTwo2D needs exactly 2 DataIO container.", "[Extractor2DFromTwo2D::canUpdate]"));

	// two temperatures: the model refuses them, the update reports it
	std::unique_ptr<EM::ExtractorBase> wrong = EM::ExtractorFactory::createExtractor(t.get(), t.get(),
		EM::Factory::createModel("VTTMouldModel"));
	EXPECT_TRUE(rec.updateFails(*wrong, "Error accessing data from DataIO.", "[Extractor2DFromTwo2D::doUpdate]"));
}
