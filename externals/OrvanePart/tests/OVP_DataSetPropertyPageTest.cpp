#include "OVP_ProjectTestUtils.h"

#include <QDir>
#include <QSignalSpy>
#include <QUndoStack>

#include <DATAIO_DataIO.h>

#include <EM_ExtractorBase.h>

#include <QPB_Property.h>

#include <OVP_DataSetPropertyPage.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_SeriesLineExtractorModel.h>

using namespace OVPTest;

namespace {

typedef OVP::Mapper::DataSet DS;
const unsigned int FOLLOW = EM::ExtractorBase::LAST_INDEX;

/*! The rows of a page as "name: shown value", groups as "[name]", depth first. */
QStringList rows(const QPB::Property * parent) {
	QStringList list;
	for (int r = 0; r < parent->childCount(); ++r) {
		const QPB::Property * p = parent->child(r);
		const QModelIndex value = p->model()->indexOf(p, QPB::PropertyModel::C_Value);
		list.append(p->isGroup() ? "[" + p->name() + "]"
								 : p->name() + ": " + p->model()->data(value).toString() + (p->isModified() ? " (bold)" : ""));
		list += rows(p);
	}
	return list;
}

/*! The row of a page with this name. */
QPB::Property * row(OVP::DataSetPropertyPage & page, const QString & name, QPB::Property * parent = nullptr) {
	parent = parent == nullptr ? page.properties().root() : parent;
	for (int r = 0; r < parent->childCount(); ++r) {
		if (parent->child(r)->name() == name)
			return parent->child(r);
		if (QPB::Property * p = row(page, name, parent->child(r)))
			return p;
	}
	return nullptr;
}

/*! Edits a row as the view does. */
bool edit(OVP::DataSetPropertyPage & page, const QString & name, const QVariant & value) {
	QPB::Property * p = row(page, name);
	EXPECT_NE(p, nullptr) << name.toStdString();
	return p != nullptr && page.properties().setData(page.properties().indexOf(p, QPB::PropertyModel::C_Value), value);
}

/*! The x and y values of series 0 of a line chart. */
std::vector<double> values(const OVP::Mapper & m) {
	const OVP::SeriesLineExtractorModel & model = static_cast<const OVP::SeriesLineExtractorModel &>(*m.chartModel());
	std::vector<double> v(model.xValues(0), model.xValues(0) + model.size(0));
	v.insert(v.end(), model.yValues(0), model.yValues(0) + model.size(0));
	return v;
}

class DataSetPropertyPageTest : public SampleSessionTest {
protected:
	/*! Adds a chart to the session; returns its mapper. */
	OVP::Mapper & add(const std::vector<DS> & dataSets, const std::string & model = std::string(),
					  const std::string & parameter = std::string(), const OVP::Mapper::ManipulatorList & manipulators = {}) {
		handler().addMapper(OVP::Mapper::createNewMapper(handler().dataManager(), dataSets, model, parameter, manipulators));
		return mapper(handler().project().mapperModel()->mapperCount() - 1);
	}

	/*! The data of a line chart made directly from data sets. */
	std::vector<double> direct(const std::vector<DS> & dataSets, const std::string & model = std::string(),
							   const std::string & parameter = std::string(),
							   const OVP::Mapper::ManipulatorList & manipulators = {}) {
		return values(*OVP::Mapper::createNewMapper(handler().dataManager(), dataSets, model, parameter, manipulators));
	}
};

} // namespace


TEST_F(DataSetPropertyPageTest, RowsOfAProfileAGridAndAModel) {
	OVP::DataSetPropertyPage profile(add({ DS{ m_dir + "/plane.out", 0, EM::CT_XTCut } }), 0);
	OVP::DataSetPropertyPage model(add({ DS{ m_dir + "/T.out" }, DS{ m_dir + "/RH.out" } }, "VTTMouldModel", "MC 2"), 0);
	const QString plane = QDir::toNativeSeparators(m_dir + "/plane.out");
	EXPECT_EQ(profile.title(), "Data set 'plane.out'");
	EXPECT_EQ(rows(profile.properties().root()), QStringList({ "[Data]", "File: " + plane, "Quantity: Temperature [C]",
		"[Cut]", "Cut type: XTCut", "x: 0.05 m", "Time: follow last time point", "[Manipulators]", "Add manipulator: None" }));
	EXPECT_EQ(model.title(), "Data set 'VTT Mould Index from T.out'");
	EXPECT_EQ(rows(model.properties().root()), QStringList({ "[Data]",
		"File 1: " + QDir::toNativeSeparators(m_dir + "/T.out"), "Quantity 1: Temperature [C]",
		"File 2: " + QDir::toNativeSeparators(m_dir + "/RH.out"), "Quantity 2: Relative humidity [%]",
		"[Manipulators]", "Add manipulator: None", "[Model]", "Model: VTT Mould Index",
		"Material class (1..4): 2 (bold)", "Sensitivity class (1..4): 1", "Decline class (1..4): 4" }));
	// files are shown, not edited
	EXPECT_FALSE(edit(profile, "File", "other.out"));

	// a model over two columns of a data file reader's collection shows each column's own quantity and unit
	const QString logger = m_dir + "/logger.out";
	writeReference(logger, { 3, 8 }, { 0, 1, 2 }, { { 20, 0.9 }, { 21, 0.95 }, { 22, 0.97 } });
	const std::shared_ptr<DATAIO::DataIO> collection = handler().dataManager().container(logger);
	collection->setColumnProperties({ "Temp", "RH" }, { "C", "-" });
	OVP::DataSetPropertyPage columns(add({ DS{ logger, 8 }, DS{ logger, 3 } }, "VTTMouldModel"), 0);
	const QStringList shown = rows(columns.properties().root());
	EXPECT_EQ(shown.mid(2, 3), QStringList({ "Quantity 1: RH [-]", "File 2: " + QDir::toNativeSeparators(logger),
											 "Quantity 2: Temp [C]" }));
}


TEST_F(DataSetPropertyPageTest, EditsAreUndoStepsGivingTheDataOfADirectChart) {
	const DS plane{ m_dir + "/plane.out", 0, EM::CT_XTCut, { { EM::CD_X, 0 }, { EM::CD_Time, FOLLOW } } };
	OVP::Mapper & profile = add({ plane });
	OVP::Mapper & series = add({ DS{ m_dir + "/T.out" } });
	OVP::Mapper & mould = add({ DS{ m_dir + "/T.out" }, DS{ m_dir + "/RH.out" } }, "VTTMouldModel");
	OVP::DataSetPropertyPage profilePage(profile, 0);
	OVP::DataSetPropertyPage seriesPage(series, 0);
	OVP::DataSetPropertyPage mouldPage(mould, 0);
	QUndoStack & stack = handler().undoStack();
	const int start = stack.count();
	struct Case {
		OVP::DataSetPropertyPage *	m_page;
		QString						m_row;
		QVariant					m_value;
		OVP::Mapper *				m_mapper;
		std::vector<double>			m_expected;
	};
	const std::vector<Case> cases = {
		{ &profilePage, "Time", 0, &profile, direct({ DS{ plane.m_fileName, 0, EM::CT_XTCut, { { EM::CD_Time, 0 } } } }) },
		// YTCut among XYCut, XTCut, YTCut; the indices picked so far stay
		{ &profilePage, "Cut type", 2, &profile, direct({ DS{ plane.m_fileName, 0, EM::CT_YTCut, { { EM::CD_Time, 0 } } } }) },
		// scaling has the factor 1 at first
		{ &seriesPage, "Add manipulator", 2, &series, direct({ DS{ m_dir + "/T.out" } }, "", "", { { "2DScaling", "1" } }) },
		{ &seriesPage, "Factor", "2", &series, direct({ DS{ m_dir + "/T.out" } }, "", "", { { "2DScaling", "2" } }) },
		{ &seriesPage, "Add manipulator", 3, &series, direct({ DS{ m_dir + "/T.out" } }, "", "",
			{ { "2DScaling", "2" }, { "2DOffset", "0" } }) },
		{ &seriesPage, "Offset", "1", &series, direct({ DS{ m_dir + "/T.out" } }, "", "",
			{ { "2DScaling", "2" }, { "2DOffset", "1" } }) },
		// the offset moved before the scaling: (T + 1) * 2
		{ &seriesPage, "Manipulator 2", 3, &series, direct({ DS{ m_dir + "/T.out" } }, "", "",
			{ { "2DOffset", "1" }, { "2DScaling", "2" } }) },
		// removing the first manipulator (actions follow the three types)
		{ &seriesPage, "Manipulator 1", 5, &series, direct({ DS{ m_dir + "/T.out" } }, "", "", { { "2DScaling", "2" } }) },
		{ &mouldPage, "Material class (1..4)", 3, &mould, direct({ DS{ m_dir + "/T.out" }, DS{ m_dir + "/RH.out" } },
			"VTTMouldModel", "MC 3") }
	};
	std::vector<std::vector<double> > before;
	for (const Case & c : cases) {
		SCOPED_TRACE(c.m_row.toStdString());
		before.push_back(values(*c.m_mapper));
		const int count = stack.count();
		ASSERT_TRUE(edit(*c.m_page, c.m_row, c.m_value));
		EXPECT_EQ(values(*c.m_mapper), c.m_expected);
		EXPECT_EQ(stack.count(), count + 1);
	}
	EXPECT_EQ(rows(seriesPage.properties().root()).mid(3), QStringList({ "[Manipulators]", "Manipulator 1: Scale by factor",
		"Factor: 2", "Add manipulator: None" }));

	// each step undone gives the data before it, and the rows follow
	for (std::size_t i = cases.size(); i-- > 0;) {
		ASSERT_TRUE(handler().undo(nullptr));
		EXPECT_EQ(values(*cases[i].m_mapper), before[i]) << i;
	}
	EXPECT_EQ(row(profilePage, "Cut type")->value(), 1);
	EXPECT_EQ(row(seriesPage, "Factor"), nullptr);
	while (stack.canRedo())
		ASSERT_TRUE(handler().redo(nullptr));

	// refused edits change nothing and leave no step; the chart's refusals are told
	QSignalSpy refused(&seriesPage, &OVP::DataSetPropertyPage::editRefused);
	const std::vector<double> scaled = values(series);
	EXPECT_TRUE(edit(seriesPage, "Factor", "2x"));
	ASSERT_EQ(refused.count(), 1);
	EXPECT_EQ(row(seriesPage, "Factor")->value(), "2");
	EXPECT_FALSE(edit(profilePage, "Time", 2));
	EXPECT_FALSE(edit(mouldPage, "Material class (1..4)", 5));
	EXPECT_EQ(values(series), scaled);
	EXPECT_EQ(stack.count(), start + static_cast<int>(cases.size()));

	// the pages of a closed session are empty
	handler().newProject();
	EXPECT_TRUE(rows(profilePage.properties().root()).isEmpty());
}
