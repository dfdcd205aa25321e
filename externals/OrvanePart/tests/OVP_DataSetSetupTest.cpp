#include "OVP_ProjectTestUtils.h"

#include <functional>
#include <tuple>

#include <QPen>
#include <QSignalSpy>
#include <QUndoStack>

#include <tinyxml.h>

#include <EM_Extractor2DOutputBase.h>
#include <EM_Extractor3DOutputBase.h>

#include <Sci_AbstractLineSeriesModel.h>

#include <OVP_DataManager.h>
#include <OVP_DataSetChoices.h>
#include <OVP_ManipulatorOptions.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_UndoDataSetSetup.h>

using namespace OVPTest;

namespace {

typedef SCI::AbstractCartesianChartModel CM;
typedef OVP::Mapper::DataSet DS;
const unsigned int FOLLOW = EM::ExtractorBase::LAST_INDEX;

/*! Sample files in a scratch folder: plane.out is a 3 x 2 wall whose element (i, j) holds
	3j + i + 1 at hour 0 and 6 more at hour 1.
*/
class DataSetSetupTest : public SampleSessionTest {
protected:
	std::unique_ptr<OVP::Mapper> create(const DS & ds, const std::string & model = std::string(),
										const std::string & parameter = std::string(),
										const OVP::Mapper::ManipulatorList & manipulators = {}) {
		return OVP::Mapper::createNewMapper(handler().dataManager(), { ds }, model, parameter, manipulators);
	}

	/*! A cut of a file of the sample folder; a time index FOLLOW follows the last time point. */
	OVP::DataSetSetup cut(const QString & file, EM::CutType cutType, unsigned int x, unsigned int y, unsigned int t) {
		OVP::DataSetSetup s;
		s.m_fileNames = QStringList{ m_dir + file };
		s.m_cutType = cutType;
		s.m_cutIndices = { x, y, 0, t == FOLLOW ? 0 : t };
		s.m_followLastTimePoint = t == FOLLOW;
		return s;
	}

	/*! The mapper element of m as text. */
	std::string xml(const OVP::Mapper & m) {
		TiXmlElement e("Mapper");
		m.writeXML(&e, m_dir, true);
		std::string text;
		text << e;
		return text;
	}

};

/*! The output of an entry in the chart's units: the sizes, then x, y and the values of a grid. */
std::vector<double> output(const OVP::Mapper & m, unsigned int index = 0) {
	const EM::ExtractorBase & e = *m.entryAt(index, "").m_extractor;
	std::vector<const ZEB::UnitVector *> parts;
	if (e.outputKind() == EM::ExtractorBase::OK_2D)
		parts = { &static_cast<const EM::Extractor2DOutputBase &>(e).x(), &static_cast<const EM::Extractor2DOutputBase &>(e).y() };
	else {
		const EM::Extractor3DOutputBase & o = static_cast<const EM::Extractor3DOutputBase &>(e);
		parts = { &o.x(), &o.y(), &o.values() };
	}
	std::vector<double> v;
	for (const ZEB::UnitVector * p : parts)
		v.push_back(static_cast<double>(p->size()));
	for (const ZEB::UnitVector * p : parts)
		v.insert(v.end(), p->m_data.begin(), p->m_data.end());
	return v;
}

} // namespace


TEST_F(DataSetSetupTest, AppliedSetupsGiveTheDataOfANewChart) {
	struct Case {
		DS						m_start;
		OVP::DataSetSetup		m_setup;
		std::vector<double>		m_last;		///< hand-computed last values of the output
	};
	OVP::DataSetSetup scaled = cut("/plane.out", EM::CT_XYCut, 1, 1, 0);
	scaled.m_manipulators = { { "2DScaling", "2" }, { "2DOffset", "1" } };
	OVP::DataSetSetup mould;
	mould.m_fileNames = QStringList{ m_dir + "/T.out", m_dir + "/RH.out" };
	mould.m_modelType = "VTTMouldModel";
	mould.m_modelParameters = { { "MC", "2" }, { "SC", "3" }, { "DC", "4" } };
	const DS profile{ m_dir + "/plane.out", 0, EM::CT_XTCut, { { EM::CD_X, 0 }, { EM::CD_Time, FOLLOW } } };
	const DS grid{ m_dir + "/plane.out", 0, EM::CT_TimeCut, { { EM::CD_Time, FOLLOW } } };
	const std::vector<Case> cases = {
		{ profile, cut("/plane.out", EM::CT_XTCut, 2, 0, 0), { 3, 6 } },
		{ profile, cut("/plane.out", EM::CT_YTCut, 0, 1, 1), { 10, 11, 12 } },
		// a time series of element (1, 1): the bottom axis of the only series turns to hours
		{ profile, cut("/plane.out", EM::CT_XYCut, 1, 1, 0), { 5, 11 } },
		{ profile, scaled, { 11, 23 } },
		{ DS{ m_dir + "/T.out" }, mould, {} },
		// another file, shown in the chart's unit
		{ DS{ m_dir + "/T.out" }, cut("/TK.out", EM::CT_NoCut, 0, 0, 0), { 20, 21, 22, 23 } },
		{ grid, cut("/plane.out", EM::CT_TimeCut, 0, 0, 0), { 1, 2, 3, 4, 5, 6 } },
		// time on x, y on y: values x fastest
		{ grid, cut("/plane.out", EM::CT_XCut, 1, 0, 0), { 2, 8, 5, 11 } }
	};
	for (const Case & c : cases) {
		const OVP::DataSetSetup & s = c.m_setup;
		SCOPED_TRACE(EM::CutTypes::keyword(s.m_cutType) + s.m_modelType);
		std::unique_ptr<OVP::Mapper> m = create(c.m_start);
		m->chartModel()->setChartData("Wall", CM::TitleText);
		m->setDataSetSetup(0, s);
		EXPECT_EQ(m->dataSetSetup(0), s);
		EXPECT_EQ(m->chartModel()->chartData(CM::TitleText).toString(), "Wall");

		DS ds{ s.m_fileNames.front(), 0, s.m_cutType };
		for (unsigned int d = 0; d < EM::NUM_CD; ++d)
			if (EM::CutTypes::isCut(s.m_cutType, d))
				ds.m_cutIndices.emplace_back(d, s.usesIndex(d) ? s.m_cutIndices[d] : FOLLOW);
		std::unique_ptr<OVP::Mapper> direct = s.m_modelType.empty()
			? create(ds, "", "", s.m_manipulators)
			: OVP::Mapper::createNewMapper(handler().dataManager(), { ds, DS{ s.m_fileNames.back() } }, s.m_modelType, "MC 2 SC 3 DC 4");
		// shown in the same units: the changed chart keeps its axis units where the data fit
		for (int a = 0; a < CM::NUM_AXES; ++a)
			EXPECT_TRUE(direct->chartModel()->setAxisData(m->chartModel()->axisData(a, CM::AxisUnit), a, CM::AxisUnit));
		const std::vector<double> values = output(*m);
		EXPECT_EQ(values, output(*direct));
		ASSERT_GE(values.size(), c.m_last.size());
		EXPECT_EQ(std::vector<double>(values.end() - static_cast<long>(c.m_last.size()), values.end()), c.m_last);

		// saved and read back: the same setup and data
		TiXmlElement e("Mapper");
		m->writeXML(&e, m_dir, false);
		OVP::Mapper reread(handler().dataManager());
		reread.readXML(&e, m_dir);
		EXPECT_EQ(reread.dataSetSetup(0), s);
		EXPECT_EQ(output(reread), values);
	}
}


TEST_F(DataSetSetupTest, RefusalsChangeNothing) {
	std::unique_ptr<OVP::Mapper> profile = create(DS{ m_dir + "/plane.out", 0, EM::CT_XTCut });
	std::unique_ptr<OVP::Mapper> series = create(DS{ m_dir + "/T.out" }, "", "", { { "2DOffset", "1" } });
	series->addExtractor({ DS{ m_dir + "/TK.out" } });
	std::unique_ptr<OVP::Mapper> grid = create(DS{ m_dir + "/plane.out", 0, EM::CT_TimeCut });
	typedef OVP::DataSetSetup S;
	const QString rh = m_dir + "/RH.out";
	const auto mould = [rh](S & s, const std::string & key, const std::string & value) {
		s.m_fileNames.append(rh);
		s.m_modelType = "VTTMouldModel";
		s.m_modelParameters = { { key, value } };
	};
	const std::string field = "4D [time, matrix 2x2 of values]";
	const std::vector<std::tuple<OVP::Mapper *, std::function<void(S &)>, std::string> > cases = {
		{ series.get(), [](S & s) { s.m_cutType = EM::CT_XTCut; },
		  "Cut type 'XTCut' is not valid for data format '2D [time, value]' in this chart." },
		{ profile.get(), [](S & s) { s.m_cutType = EM::CT_TimeCut; },
		  "Cut type 'TimeCut' is not valid for data format '" + field + "' in this chart." },
		{ profile.get(), [](S & s) { s.m_followLastTimePoint = false; s.m_cutIndices[EM::CD_Time] = 2; },
		  "Time index 2 is beyond the last time point of the file, which has 2 time points." },
		{ series.get(), [&mould](S & s) { mould(s, "XC", "1"); }, "Model 'VTTMouldModel' has no parameter 'XC'." },
		{ series.get(), [](S & s) { s.m_modelType = "VTTMouldModel"; }, "A model combines two data files." },
		// the other series keeps the left axis in C
		{ series.get(), [rh](S & s) { s.m_fileNames = QStringList{ rh }; },
		  "Unit [%] of the data set does not fit the unit [C] of the axis, which other series use." }
	};
	for (const auto & c : cases) {
		OVP::Mapper & m = *std::get<0>(c);
		SCOPED_TRACE(std::get<2>(c));
		S setup = m.dataSetSetup(0);
		std::get<1>(c)(setup);
		const std::string before = xml(m);
		const std::vector<double> data = output(m);
		EXPECT_EQ(thrown([&]() { m.setDataSetSetup(0, setup); }).second, std::get<2>(c));
		EXPECT_EQ(xml(m), before);
		EXPECT_EQ(output(m), data);
	}

	// a picked time point that a rerun has not reached again may stay, but cannot be picked anew
	profile->setDataSetSetup(0, cut("/plane.out", EM::CT_XTCut, 0, 0, 1));
	writeField(m_dir + "/plane.out", "wall.g6a", { 0, 1, 2, 3, 4, 5 }, { 0 }, { { 1, 2, 3, 4, 5, 6 } });
	profile->refresh(DATAIO::DataIO::RM_EXPLICIT);
	profile->setDataSetSetup(0, cut("/plane.out", EM::CT_XTCut, 2, 0, 1));
	EXPECT_EQ(thrown([&]() { profile->setDataSetSetup(0, cut("/plane.out", EM::CT_YTCut, 0, 0, 1)); }).second,
			  "Time index 1 is beyond the last time point of the file, which has 1 time points.");
}


TEST_F(DataSetSetupTest, AxisUnitsOfTheDataGroupOnly) {
	std::unique_ptr<OVP::Mapper> lines = create(DS{ m_dir + "/T.out" });
	std::unique_ptr<OVP::Mapper> grid = create(DS{ m_dir + "/plane.out", 0, EM::CT_TimeCut });
	for (OVP::Mapper * m : { lines.get(), grid.get() }) {
		const int valueAxis = m == grid.get() ? CM::RightAxis : CM::LeftAxis;
		EXPECT_EQ(m->axisUnitChoices(valueAxis), std::vector<ZEB::Unit>({ ZEB::Unit("K"), ZEB::Unit("C") }));
		// another group, or no unit: refused, reported, nothing changes
		const std::string before = xml(*m);
		const std::vector<double> data = output(*m);
		for (const ZEB::Unit & u : { ZEB::Unit("Pa"), ZEB::Unit() }) {
			m_messages->m_messages.clear();
			EXPECT_FALSE(m->chartModel()->setAxisData(u.id(), valueAxis, CM::AxisUnit));
			EXPECT_EQ(m_messages->count(ZEB::MSG_ERROR, "Unit [" + u.name() + "] does not fit the data shown on the axis, "
										"which are in [C].", "[Mapper::checkAxisUnit]"), 1);
			EXPECT_EQ(xml(*m), before);
			EXPECT_EQ(output(*m), data);
		}
		// a unit of the group converts the values, K = C + 273.15, and nothing else
		ASSERT_TRUE(m->chartModel()->setAxisData(ZEB::Unit("K").id(), valueAxis, CM::AxisUnit));
		const std::vector<double> converted = output(*m);
		ASSERT_EQ(converted.size(), data.size());
		const std::size_t values = data.size() - static_cast<std::size_t>(data[m == grid.get() ? 2 : 1]);
		for (std::size_t i = 0; i < data.size(); ++i)
			EXPECT_NEAR(converted[i], i < values ? data[i] : data[i] + 273.15, 1e-9) << i;
	}
	// hours to days on the time axis: x values 0..3 h
	ASSERT_TRUE(lines->chartModel()->setAxisData(ZEB::Unit("d").id(), CM::BottomAxis, CM::AxisUnit));
	EXPECT_NEAR(output(*lines)[2 + 3], 3.0/24, 1e-12);
	// an axis without data takes any unit
	EXPECT_TRUE(lines->chartModel()->setAxisData(ZEB::Unit("Pa").id(), CM::RightAxis, CM::AxisUnit));
}


TEST_F(DataSetSetupTest, ChoicesAndRemovedSeries) {
	std::unique_ptr<OVP::Mapper> profile = create(DS{ m_dir + "/plane.out", 0, EM::CT_XTCut });
	const OVP::DataSetChoices choices(*profile, 0);
	EXPECT_EQ(choices.cutTypes(), std::vector<EM::CutType>({ EM::CT_XYCut, EM::CT_XTCut, EM::CT_YTCut }));
	ASSERT_NE(choices.cut(), nullptr);
	EXPECT_NEAR(choices.cut()->coordinates(EM::CD_X).at(2), 0.25, 1e-12);
	std::unique_ptr<OVP::Mapper> series = create(DS{ m_dir + "/T.out" });
	EXPECT_EQ(OVP::DataSetChoices(*series, 0).cut(), nullptr);
	typedef OVP::ManipulatorOptions MO;
	for (int c = MO::MC_None; c < MO::NUM_MC; ++c)
		EXPECT_EQ(MO::choice(MO::typeKeyword(static_cast<MO::Choice>(c))), c);

	// removing a series: the others keep their data and display properties, the tree follows;
	// undoing brings the series back as it was
	handler().newProject();
	series->addExtractor({ DS{ m_dir + "/TK.out" } });
	series->addExtractor({ DS{ m_dir + "/RH.out" } });
	OVP::Mapper * m = series.get();
	handler().addMapper(std::move(series));
	typedef SCI::AbstractLineSeriesModel LM;
	ASSERT_TRUE(m->chartModel()->setSeriesData(QPen(QColor(Qt::red), 2.5), 1, LM::SeriesPen));
	ASSERT_TRUE(m->chartModel()->setSeriesData("Kelvin $filename", 1, LM::SeriesTitleText));
	const QVariant colour = m->chartModel()->seriesData(2, LM::SeriesPenColor);
	const std::vector<double> humidity = output(*m, 2);
	const std::string before = xml(*m);
	handler().removeDataSet(0, 1);
	EXPECT_EQ(handler().undoStack().undoText(), "remove series 'Kelvin TK.out'");
	EXPECT_EQ(handler().project().mapperModel()->rowCount(handler().project().mapperModel()->index(0, 0)), 2);
	EXPECT_EQ(output(*m, 1), humidity);
	EXPECT_EQ(m->chartModel()->seriesData(1, LM::SeriesPenColor), colour);
	ASSERT_TRUE(handler().undo(nullptr));
	EXPECT_EQ(xml(*m), before);
	EXPECT_EQ(output(*m, 2), humidity);
	EXPECT_EQ(m->dataSetTitle(1), "Kelvin TK.out");
	ASSERT_TRUE(handler().redo(nullptr));
	handler().removeDataSet(0, 1);
	EXPECT_EQ(thrown([this]() { handler().removeDataSet(0, 0); }).second,
			  "The last series of a chart cannot be removed; delete the chart instead.");
	EXPECT_EQ(handler().undoStack().count(), 3);
	EXPECT_EQ(thrown([&profile]() { profile->setDataSetSetup(1, profile->dataSetSetup(0)); }).second,
			  "The chart has no data set #1.");
}


TEST_F(DataSetSetupTest, UndoAndRedo) {
	handler().newProject();
	handler().addMapper(create(DS{ m_dir + "/plane.out", 0, EM::CT_XTCut }));
	OVP::Mapper & m = *handler().project().mapperModel()->mapper(0);
	const OVP::DataSetSetup first = m.dataSetSetup(0);
	const std::vector<double> firstData = output(m);
	OVP::DataSetSetup second = first;
	second.m_followLastTimePoint = false;
	second.m_cutIndices[EM::CD_Time] = 0;
	ASSERT_EQ(handler().saveProject(nullptr, m_testDir + "/session.o2"), OVP::ProjectHandler::SaveOK);
	const QUndoStack & stack = handler().undoStack();
	// (the data of each step undone is checked through the data set pages)
	handler().setDataSetSetup(0, 0, second);
	EXPECT_EQ(stack.undoText(), "change time point of 'plane.out'");
	const std::vector<double> secondData = output(m);
	EXPECT_NE(secondData, firstData);
	// back at the saved state the session is not modified
	ASSERT_TRUE(handler().undo(nullptr));
	EXPECT_FALSE(handler().isModified());
	ASSERT_TRUE(handler().redo(nullptr));

	// a refused setup throws the reason and leaves no step behind, as does the same setup again
	OVP::DataSetSetup beyond = second;
	beyond.m_cutIndices[EM::CD_Time] = 2;
	EXPECT_THROW(handler().setDataSetSetup(0, 0, beyond), ZEB::Exception);
	handler().setDataSetSetup(0, 0, second);
	EXPECT_EQ(stack.count(), 2);
	EXPECT_EQ(output(m), secondData);

	// the text names what changed; the time index of a cut that follows the last time point is no change
	OVP::DataSetSetup other = first;
	other.m_cutIndices[EM::CD_X] = 2;
	other.m_cutIndices[EM::CD_Time] = 1;
	EXPECT_EQ(OVP::UndoDataSetSetup::changeText(first, other, "a"), "change cut position of 'a'");
	other.m_cutType = EM::CT_YTCut;
	EXPECT_EQ(OVP::UndoDataSetSetup::changeText(first, other, "a"), "change cut type of 'a'");
	other.m_manipulators = { { "2DOffset", "1" } };
	EXPECT_EQ(OVP::UndoDataSetSetup::changeText(first, other, "a"), "change data set of 'a'");
}
