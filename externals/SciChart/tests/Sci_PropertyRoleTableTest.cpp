#include <gtest/gtest.h>

#include <functional>
#include <set>

#include <QDateTime>
#include <QFont>
#include <QPen>
#include <QSize>

#include <ZEB_Unit.h>

#include <Sci_ColorMap.h>
#include <Sci_PropertyRoleTable.h>

#include "Sci_ChartTestModels.h"
#include "Sci_TestSupport.h"

using SCI::PropertyRoleTable;
typedef PropertyRoleTable PRT;

namespace {

/*! A value for an editor of an entry that differs from current and lies in the entry's range. */
QVariant otherValue(const PRT::Entry & e, const QVariant & current) {
	switch (e.m_kind) {
		case PRT::BoolEditor :		return !current.toBool();
		case PRT::IntEditor :		return current.toInt() == int(e.m_minimum) ? int(e.m_minimum) + 1 : int(e.m_minimum);
		case PRT::DoubleEditor :	return current.toDouble() == 0.25 ? 0.5 : 0.25;
		case PRT::EnumEditor :		return e.m_choices[0].m_value == current.toInt() ? e.m_choices[1].m_value
																						  : e.m_choices[0].m_value;
		case PRT::StringEditor :	return QString("Wall \u00b0C $unit");
		case PRT::ColorEditor :		return QColor(10, 20, 30);
		case PRT::FontEditor :		return QFont("Serif", 17, QFont::Bold);
		case PRT::PenEditor :		return QPen(QBrush(QColor(1, 2, 3)), 3, Qt::DashDotLine);
		case PRT::DateTimeEditor :	return QDateTime(QDate(2021, 3, 4), QTime(5, 6), Qt::UTC);
		case PRT::StringListEditor :return QStringList({ "yyyy", "MMM" });
		case PRT::UnitEditor :		return ZEB::Unit("K").id();
		case PRT::SizeEditor :		return QSize(30, 40);
		case PRT::ColorMapEditor : {
			SCI::ColorMap m;
			m.setLinearMap(Qt::black, Qt::white, 3);
			return QVariant::fromValue(m);
		}
	}
	return QVariant();
}

/*! Sets every editable role of a table to another value of its editor's kind through set and
	expects get to give it back.
*/
void expectEveryRoleTakesItsEditorsValue(PRT::Target target, const std::function<QVariant(int)> & get,
										 const std::function<bool(const QVariant &, int)> & set)
{
	for (const PRT::Entry & e : PRT::editableRoles(target)) {
		const QVariant value = otherValue(e, get(e.m_role));
		ASSERT_TRUE(set(value, e.m_role)) << "target " << target << " role " << e.m_role;
		QVariant got = get(e.m_role);
		ASSERT_TRUE(got.convert(value.userType())) << "target " << target << " role " << e.m_role;
		EXPECT_EQ(got, value) << "target " << target << " role " << e.m_role;
	}
}

} // namespace


TEST(SciPropertyRoleTable, EveryRoleListedOnceWithSensibleEditor) {
	for (int t = 0; t < PRT::NUM_TARGETS; ++t) {
		const PRT::Target target = static_cast<PRT::Target>(t);
		const std::set<int> notEditable(PRT::notEditableRoles(target).begin(), PRT::notEditableRoles(target).end());
		std::set<int> editable;
		for (const PRT::Entry & e : PRT::editableRoles(target)) {
			EXPECT_TRUE(editable.insert(e.m_role).second) << "role " << e.m_role << " listed twice";
			if (e.m_kind == PRT::IntEditor || e.m_kind == PRT::DoubleEditor || e.m_kind == PRT::SizeEditor) {
				EXPECT_LT(e.m_minimum, e.m_maximum) << "role " << e.m_role;
			}
			if (e.m_kind == PRT::EnumEditor) {
				EXPECT_GE(e.m_choices.size(), 2u) << "role " << e.m_role;
			}
			// a part names a pen of the same table
			if (e.m_partOf != -1) {
				ASSERT_NE(PRT::entry(target, e.m_partOf), nullptr);
				EXPECT_EQ(PRT::entry(target, e.m_partOf)->m_kind, PRT::PenEditor);
			}
			EXPECT_EQ(PRT::entry(target, e.m_role), &e);
		}
		// the walk over all roles of the target: each in exactly one of the lists
		for (int role = PRT::firstRole(target); role < PRT::roleEnd(target); ++role)
			EXPECT_EQ(editable.count(role) + notEditable.count(role), 1u) << "target " << t << " role " << role;
	}
}


TEST(SciPropertyRoleTable, EditorsMatchTheModels) {
	SciTest::VectorLineModel line;
	line.addSeries(SciTest::VectorLineModel::Series{ { 0, 1 }, { 2, 3 } });
	SciTest::VectorGridModel grid;
	SciTest::VectorFieldTestModel field;
	SciTest::TestBarModel bars(1);
	EXPECT_EQ(PRT::seriesTarget(line), PRT::LineSeriesTarget);
	EXPECT_EQ(PRT::seriesTarget(grid), PRT::ColorGridTarget);
	EXPECT_EQ(PRT::seriesTarget(field), PRT::VectorFieldTarget);
	EXPECT_EQ(PRT::seriesTarget(bars), PRT::BarSeriesTarget);

	expectEveryRoleTakesItsEditorsValue(PRT::ChartTarget, [&](int r) { return line.chartData(r); },
		[&](const QVariant & v, int r) { return line.setChartData(v, r); });
	for (int axis = 0; axis < SCI::AbstractCartesianChartModel::NUM_AXES; ++axis)
		expectEveryRoleTakesItsEditorsValue(PRT::AxisTarget, [&](int r) { return grid.axisData(axis, r); },
			[&](const QVariant & v, int r) { return grid.setAxisData(v, axis, r); });
	const std::pair<PRT::Target, SCI::AbstractChartModel *> series[] = {
		{ PRT::LineSeriesTarget, &line }, { PRT::ColorGridTarget, &grid }, { PRT::VectorFieldTarget, &field },
		{ PRT::BarSeriesTarget, &bars } };
	for (const auto & s : series)
		expectEveryRoleTakesItsEditorsValue(s.first, [&](int r) { return s.second->seriesData(0, r); },
			[&](const QVariant & v, int r) { return s.second->setSeriesData(v, 0, r); });
}
