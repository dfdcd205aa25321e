#include "OVP_ProjectTestUtils.h"

#include <cmath>
#include <functional>
#include <set>

#include <QPen>
#include <QSignalSpy>

#include <QPB_NumberType.h>
#include <QPB_Property.h>
#include <QPB_PropertyModel.h>
#include <QPB_ValueType.h>

#include <Sci_AbstractColorGridSeriesModel.h>
#include <Sci_AbstractLineSeriesModel.h>
#include <Sci_AbstractVectorFieldSeriesModel.h>
#include <Sci_Chart.h>
#include <Sci_ColorMap.h>

#include <OVP_ChartPropertyPage.h>
#include <OVP_Mapper.h>
#include <OVP_MapperTreeModel.h>
#include <OVP_Project.h>
#include <OVP_PropertyPageList.h>
#include <OVP_PropertyPanel.h>

using namespace OVPTest;

namespace {

typedef SCI::PropertyRoleTable RT;
typedef SCI::AbstractCartesianChartModel AM;
typedef SCI::AbstractLineSeriesModel LM;
typedef OVP::ChartPropertyPage Page;

/*! A session with a line chart of two series, a colour grid and a vector field, saved. */
class ChartPropertyPageTest : public SampleSessionTest {
protected:
	void SetUp() override {
		SampleSessionTest::SetUp();
		addChart({ "T.out", "RH.out" });
		addChart("plane.out", EM::CT_TimeCut);
		addChart("flux.out", EM::CT_TimeCut);
		ASSERT_EQ(handler().saveProject(nullptr, m_testDir + "/s.o2"), OVP::ProjectHandler::SaveOK);
	}

	/*! Every page of a mapper but the series pages after the first. */
	std::vector<std::unique_ptr<Page> > pagesOf(OVP::Mapper & m) {
		std::vector<std::unique_ptr<Page> > pages;
		pages.emplace_back(new Page(m, Page::ChartPage, 0));
		for (int axis : { AM::BottomAxis, AM::LeftAxis, AM::RightAxis })
			pages.emplace_back(new Page(m, Page::AxisPage, axis));
		pages.emplace_back(new Page(m, Page::SeriesPage, 0));
		return pages;
	}

	/*! The model's value of a role of a page's part, read without the page. */
	static QVariant modelValue(OVP::Mapper & m, const Page & page, int role) {
		switch (page.kind()) {
			case Page::ChartPage :	return m.chartModel()->chartData(role);
			case Page::AxisPage :	return m.chartModel()->axisData(page.index(), role);
			default :				return m.chartModel()->seriesData(page.index(), role);
		}
	}

	/*! An edit of a property as the view makes it: setData() on the value cell. */
	static bool edit(QPB::Property * p, const QVariant & value) {
		QPB::PropertyModel * model = p->model();
		return model->setData(model->indexOf(p, QPB::PropertyModel::C_Value), value, Qt::EditRole);
	}
};

/*! A value of a number property away from its current one, inside its range: up by at most
	largestStep, down where there is no room; a value taken from the data becomes largestStep.
*/
double otherNumber(const QPB::Property & p, double largestStep) {
	const double current = p.value().toDouble();
	if (std::isnan(current))
		return largestStep;
	const double minimum = p.attribute(QPB::NumberType::Minimum).toDouble();
	const double maximum = p.attribute(QPB::NumberType::Maximum).toDouble();
	const double step = std::min(largestStep, (maximum - minimum) / 4);
	return current + step <= maximum ? current + step : current - step;
}

} // namespace


TEST_F(ChartPropertyPageTest, EditsThroughThePagesSurviveSaveAndReload) {
	SCI::ColorMap map;
	map.setLinearMap(Qt::green, Qt::black, 4);
	// lower limits are raised after their upper limits, which stay above them
	const std::set<std::pair<RT::Target, int> > lowerLimits = { { RT::AxisTarget, AM::AxisMinimum },
		{ RT::ColorGridTarget, SCI::AbstractColorGridSeriesModel::ColorGridMinimumZ },
		{ RT::VectorFieldTarget, SCI::AbstractVectorFieldSeriesModel::VectorFieldMinimumZ },
		{ RT::VectorFieldTarget, SCI::AbstractVectorFieldSeriesModel::VectorFieldMinimumArrowLength } };
	std::vector<std::vector<std::vector<QVariant> > > expected(3);
	for (int mi = 0; mi < 3; ++mi) {
		OVP::Mapper & m = mapper(mi);
		for (const std::unique_ptr<Page> & page : pagesOf(m)) {
			expected[mi].emplace_back();
			QString refusals;
			QObject::connect(page.get(), &OVP::PropertyPage::editRefused, [&refusals](const QString & r) { refusals += r; });
			auto isLower = [&](int role) { return lowerLimits.count({ page->target(), role }) != 0; };
			for (int pass = 0; pass < 2; ++pass) {
				for (const RT::Entry & e : RT::editableRoles(page->target())) {
					QPB::Property * p = page->propertyOfRole(e.m_role);
					if (p->isSubProperty() || isLower(e.m_role) != (pass == 1) || !p->isEffectivelyEnabled())
						continue;
					SCOPED_TRACE(QString("%1, %2 of chart %3").arg(page->title(), e.name()).arg(mi).toStdString());
					const QVariant before = modelValue(m, *page, e.m_role);
					const int names = p->attribute("names").toStringList().size();
					const double step = isLower(e.m_role) ? 1 : 10;
					switch (e.m_kind) {
						case RT::BoolEditor :
							EXPECT_TRUE(p->model()->setData(p->model()->indexOf(p, QPB::PropertyModel::C_Value),
															p->value().toBool() ? Qt::Unchecked : Qt::Checked,
															Qt::CheckStateRole));
							break;
						case RT::IntEditor :		EXPECT_TRUE(edit(p, int(otherNumber(*p, step)))); break;
						case RT::DoubleEditor :		EXPECT_TRUE(edit(p, otherNumber(*p, step))); break;
						case RT::StringEditor :		EXPECT_TRUE(edit(p, p->value().toString() + " b")); break;
						case RT::EnumEditor :
						case RT::UnitEditor :		EXPECT_TRUE(edit(p, (p->value().toInt() + 1) % names)); break;
						case RT::ColorEditor :		EXPECT_TRUE(edit(p, QColor(12, 34, 56))); break;
						case RT::FontEditor :		EXPECT_TRUE(edit(p, QFont("DejaVu Serif", 13, QFont::Bold))); break;
						case RT::DateTimeEditor :
							EXPECT_TRUE(edit(p, QDateTime(QDate(2010, 5, 6), QTime(7, 8, 9), Qt::UTC)));
							break;
						case RT::StringListEditor :	EXPECT_TRUE(edit(p, QStringList{ "yyyy", "MM-dd" })); break;
						case RT::ColorMapEditor :	EXPECT_TRUE(edit(p, QVariant::fromValue(map))); break;
						case RT::PenEditor :
							// through the parts, as a user edits a pen
							EXPECT_TRUE(edit(p->child(0), QColor(10, 200, 30)));
							EXPECT_TRUE(edit(p->child(1), 3.0));
							break;
						case RT::SizeEditor :
							EXPECT_TRUE(edit(p->child(0), 33));
							EXPECT_TRUE(edit(p->child(1), 44));
							break;
					}
					EXPECT_NE(modelValue(m, *page, e.m_role), before) << refusals.toStdString();
					// the page shows what the model holds
					const QPB::Property * shown = page->propertyOfRole(e.m_role);
					if (e.m_kind != RT::EnumEditor && e.m_kind != RT::UnitEditor) {
						EXPECT_EQ(shown->value(), modelValue(m, *page, e.m_role));
					}
				}
			}
			for (const RT::Entry & e : RT::editableRoles(page->target()))
				expected[mi].back().push_back(modelValue(m, *page, e.m_role));
			// the session file keeps a hidden colour bar of a colour grid under a name it does not
			// read back: the bar is visible again after loading
			if (page->target() == RT::ColorGridTarget)
				expected[mi].back()[static_cast<size_t>(
					RT::entry(RT::ColorGridTarget, SCI::AbstractColorGridSeriesModel::ColorGridColorBarVisible)
					- RT::editableRoles(RT::ColorGridTarget).data())] = true;
		}
	}
	EXPECT_TRUE(handler().isModified());
	const QString file = m_testDir + "/styled.o2";
	ASSERT_EQ(handler().saveProject(nullptr, file), OVP::ProjectHandler::SaveOK);
	ASSERT_TRUE(handler().loadProject(nullptr, file, true));
	for (int mi = 0; mi < 3; ++mi) {
		std::vector<std::unique_ptr<Page> > pages = pagesOf(mapper(mi));
		for (size_t pi = 0; pi < pages.size(); ++pi) {
			const std::vector<RT::Entry> & entries = RT::editableRoles(pages[pi]->target());
			for (size_t r = 0; r < entries.size(); ++r)
				EXPECT_EQ(modelValue(mapper(mi), *pages[pi], entries[r].m_role), expected[mi][pi][r])
					<< pages[pi]->title().toStdString() << ", " << entries[r].name().toStdString() << ", chart " << mi;
		}
	}
}


TEST_F(ChartPropertyPageTest, BadInputIsRefusedWithoutChange) {
	OVP::Mapper & m = mapper(0);
	Page axis(m, Page::AxisPage, AM::LeftAxis);
	QSignalSpy refused(&axis, &OVP::PropertyPage::editRefused);
	QUndoStack & stack = handler().undoStack();
	QPB::Property * minimum = axis.propertyOfRole(AM::AxisMinimum);
	QPB::Property * maximum = axis.propertyOfRole(AM::AxisMaximum);
	// fixed limits are not editable while the axis scales itself
	EXPECT_FALSE(minimum->isEffectivelyEnabled());
	EXPECT_FALSE(edit(maximum, 50.0));
	ASSERT_TRUE(edit(axis.propertyOfRole(AM::AxisAutoscale), false));
	ASSERT_TRUE(edit(maximum, 30.0));
	ASSERT_TRUE(edit(minimum, 10.0));
	const int steps = stack.count();

	EXPECT_FALSE(edit(maximum, "thirty"));
	EXPECT_EQ(refused.count(), 0);
	const std::pair<QPB::Property *, double> orderBroken[] = { { maximum, 10.0 }, { minimum, 31.5 } };
	for (const auto & edited : orderBroken) {
		EXPECT_TRUE(edit(edited.first, edited.second));
		EXPECT_EQ(minimum->value().toDouble(), 10.0);
		EXPECT_EQ(maximum->value().toDouble(), 30.0);
	}
	ASSERT_EQ(refused.count(), 2);
	EXPECT_EQ(refused[0][0].toString(), "The maximum must be greater than the minimum (10).");
	EXPECT_EQ(stack.count(), steps);
}


TEST_F(ChartPropertyPageTest, PagesFollowUndoAndSeriesChanges) {
	OVP::Mapper & m = mapper(0);
	OVP::PropertyPanel panel;
	panel.setMapper(&m);
	OVP::PropertyPageList & list = *panel.pages();
	// chart, three axes (the relative humidity is on the right), two series, two data sets
	ASSERT_EQ(list.count(), 8);

	// the elements of the chart find their pages
	const std::pair<SCI::ChartElement, QString> elements[] = {
		{ SCI::ChartElement(SCI::ChartElement::Legend), "Chart" },
		{ SCI::ChartElement(SCI::ChartElement::Axis, AM::RightAxis), "right y-axis" },
		{ SCI::ChartElement(SCI::ChartElement::Legend, 1), "Series 'RH.out'" } };
	for (const auto & e : elements) {
		ASSERT_TRUE(panel.showElement(e.first));
		EXPECT_EQ(panel.currentPage()->title(), e.second);
	}
	EXPECT_FALSE(panel.showElement(SCI::ChartElement(SCI::ChartElement::Series, 2)));

	// an edit and its undo show in the page and the list
	Page * series = static_cast<Page *>(panel.currentPage());
	EXPECT_TRUE(edit(series->propertyOfRole(LM::SeriesTitleText), "Humidity"));
	EXPECT_EQ(list.title(5), "Series 'Humidity'");
	ASSERT_TRUE(handler().undo(nullptr));
	EXPECT_EQ(series->propertyOfRole(LM::SeriesTitleText)->value().toString(), "RH.out");
	// without a series on it the right axis has no page; the panel stays on the series
	EXPECT_TRUE(edit(series->propertyOfRole(LM::SeriesLeftAxis), true));
	EXPECT_EQ(panel.pages()->count(), 7);
	EXPECT_EQ(panel.currentPage()->title(), "Series 'RH.out'");
	EXPECT_FALSE(panel.showElement(SCI::ChartElement(SCI::ChartElement::Axis, AM::RightAxis)));

	// a deleted chart empties the panel
	handler().removeMappers(0, 1);
	EXPECT_EQ(panel.pages(), nullptr);
	EXPECT_EQ(panel.currentPage(), nullptr);
}
