#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <QAbstractItemModelTester>
#include <QDateTime>
#include <QFont>
#include <QLocale>
#include <QPen>
#include <QSignalSpy>

#include <ZEB_Exception.h>

#include <QPB_BoolType.h>
#include <QPB_ColorType.h>
#include <QPB_CoordinateIndexType.h>
#include <QPB_DateTimeType.h>
#include <QPB_EnumType.h>
#include <QPB_FontType.h>
#include <QPB_NumberType.h>
#include <QPB_PenType.h>
#include <QPB_Property.h>
#include <QPB_PropertyModel.h>
#include <QPB_StringType.h>

using QPB::Property;
using QPB::PropertyModel;

namespace {

/*! The text of the value cell of p. */
QString shown(const PropertyModel & model, const Property * p) {
	return model.data(model.indexOf(p, PropertyModel::C_Value)).toString();
}

/*! The coordinates 0, 0.125 and 0.25 m with "follow last time point". */
void makeCut(Property * p) {
	p->setAttribute(QPB::CoordinateIndexType::Coordinates, QVariantList{ 0.0, 0.125, 0.25 });
	p->setAttribute(QPB::CoordinateIndexType::Unit, "m");
	p->setAttribute(QPB::CoordinateIndexType::FollowLast, true);
}

} // namespace


TEST(QPBPropertyModel, TreeStructureFollowsChangesAndDisplaysEveryType) {
	PropertyModel model;
	QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);

	Property * axis = model.root()->addGroup("Axis");
	Property * visible = axis->addChild("Visible", QPB::BoolType::ID, true);
	Property * ticks = axis->addChild("Ticks", QPB::NumberType::INT_ID, 42);
	ticks->setAttribute(QPB::NumberType::Unit, "px");
	Property * maximum = axis->addChild("Maximum", QPB::NumberType::DOUBLE_ID, 1.0/3);
	maximum->setAttribute(QPB::NumberType::Decimals, 3);
	Property * title = axis->addChild("Title", QPB::StringType::ID, QString("Temperature [$unit]"));
	Property * position = axis->addChild("Position", QPB::EnumType::ID, 1);
	position->setAttribute(QPB::EnumType::Names, QStringList{ "Left", "Right" });
	Property * background = axis->addChild("Background", QPB::ColorType::ID, QColor("#ff0000"));
	Property * grid = axis->addChild("Grid", QPB::ColorType::ID, QColor("#123456"));
	Property * shade = axis->addChild("Shade", QPB::ColorType::ID, QColor(0x12, 0x34, 0x56, 0x80));
	QFont sans("Sans", 10);
	sans.setBold(true);
	Property * font = axis->addChild("Font", QPB::FontType::ID, sans);
	Property * pen = axis->addChild("Pen", QPB::PenType::ID, QPen(QColor("#0000ff"), 1.5, Qt::DashLine));
	Property * start = model.root()->addChild("Start", QPB::DateTimeType::ID,
											  QDateTime(QDate(2024, 3, 1), QTime(12, 30)));
	start->setAttribute(QPB::DateTimeType::Format, "dd.MM.yyyy hh:mm");
	Property * cut = model.root()->addChild("Time", QPB::CoordinateIndexType::ID, 1);
	makeCut(cut);

	ASSERT_EQ(model.rowCount(), 3);
	EXPECT_EQ(model.rowCount(model.indexOf(axis)), 10);
	EXPECT_EQ(model.rowCount(model.indexOf(pen)), 3);		// colour, width, style
	EXPECT_EQ(model.rowCount(model.indexOf(font)), 4);		// family, size, bold, italic
	EXPECT_EQ(model.property(model.index(1, 0, model.indexOf(pen))), pen->child(1));
	EXPECT_EQ(model.parent(model.indexOf(pen->child(2), PropertyModel::C_Value)), model.indexOf(pen));
	EXPECT_EQ(model.data(model.indexOf(axis)).toString(), "Axis");
	EXPECT_FALSE(model.data(model.indexOf(axis, PropertyModel::C_Value)).isValid());

	const std::pair<const Property *, const char *> texts[] = {
		{ visible, "Yes" }, { ticks, "42 px" }, { maximum, "0.333" }, { title, "Temperature [$unit]" },
		{ position, "Right" }, { background, "Red" }, { grid, "#123456" }, { shade, "#80123456" },
		{ font, "Sans, 10 pt, bold" }, { pen, "Blue, 1.5 px, Dashed" }, { pen->child(1), "1.5 px" },
		{ pen->child(2), "Dashed" }, { font->child(1), "10 pt" }, { start, "01.03.2024 12:30" },
		{ cut, "0.125 m" }
	};
	for (const auto & t : texts)
		EXPECT_EQ(shown(model, t.first), t.second) << t.first->name().toStdString();
	EXPECT_EQ(model.data(model.indexOf(visible, PropertyModel::C_Value), Qt::CheckStateRole), Qt::Checked);

	cut->setValue(QPB::CoordinateIndexType::FOLLOW_LAST);
	EXPECT_EQ(shown(model, cut), "follow last time point");
	cut->setValue(5);
	EXPECT_EQ(shown(model, cut), "index 5");

	// numbers follow the application's locale
	QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
	EXPECT_EQ(shown(model, maximum), "0,333");
	EXPECT_EQ(shown(model, pen), "Blue, 1,5 px, Dashed");
	QLocale::setDefault(QLocale::c());

	// the display follows setValue() of a compound value down to its parts
	QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
	pen->setValue(QPen(QColor("#123456"), 3, Qt::DotLine));
	EXPECT_EQ(shown(model, pen->child(0)), "#123456");
	EXPECT_EQ(shown(model, pen->child(2)), "Dotted");
	EXPECT_GE(changed.count(), 4);

	// rows come and go under the tester's eyes
	axis->clearChildren();
	EXPECT_EQ(model.rowCount(model.indexOf(axis)), 0);
	pen = model.root()->addChild("Pen", QPB::PenType::ID, QPen());
	pen->clearChildren();			// sub-properties stay
	EXPECT_EQ(pen->childCount(), 3);
	model.clear();
	EXPECT_EQ(model.rowCount(), 0);

	EXPECT_THROW(Property("x", "no such type", 1), ZEB::Exception);
}


TEST(QPBPropertyModel, ChecksValuesWithReasons) {
	const double nan = std::numeric_limits<double>::quiet_NaN();
	const struct {
		const char *	m_type;
		QVariantMap		m_attributes;
		QVariant		m_value;
		const char *	m_reason;		// empty: accepted
	} cases[] = {
		{ "int", { { "minimum", 0 }, { "maximum", 10 } }, 10, "" },
		{ "int", { { "minimum", 0 }, { "maximum", 10 } }, 11, "Value must be between 0 and 10." },
		{ "int", {}, 2.5, "Enter a whole number." },
		{ "int", {}, QString("3"), "Enter a whole number." },
		{ "int", {}, 3e9, "Value must be between -2147483648 and 2147483647." },
		{ "double", { { "minimum", 0 }, { "minimumExclusive", true } }, 0.0, "Value must be greater than 0." },
		{ "double", { { "maximum", 1.5 } }, 1.5, "" },
		{ "double", { { "minimum", -1 }, { "maximum", 1 }, { "maximumExclusive", true } }, 1.0,
		  "Value must be at least -1 and less than 1." },
		{ "double", {}, nan, "Enter a number." },
		{ "string", { { "notEmpty", true } }, QString(" \t"), "The text must not be empty." },
		{ "string", {}, QString(), "" },
		{ "enum", { { "names", QStringList{ "a", "b" } } }, 2, "Choose one of the 2 entries." },
		{ "enum", { { "names", QStringList{ "a", "b" } } }, -1, "Choose one of the 2 entries." },
		{ "color", {}, QColor(), "Choose a colour." },
		{ "color", {}, QColor(1, 2, 3, 4), "The colour must not be transparent." },
		{ "color", { { "alpha", true } }, QColor(1, 2, 3, 4), "" },
		{ "font", {}, QFont(""), "The font family must not be empty." },
		{ "pen", {}, QPen(Qt::red, 101), "Value must be between 0 and 100." },
		{ "datetime", {}, QDateTime(), "Enter a valid date and time." },
		{ "coordinateIndex", { { "coordinates", QVariantList{ 1.0, 2.0, 3.0 } } }, 3,
		  "Index 3 lies outside the 3 coordinate values." },
		{ "coordinateIndex", { { "coordinates", QVariantList{ 1.0, 2.0, 3.0 } } }, -1,
		  "Index -1 lies outside the 3 coordinate values." },
		{ "coordinateIndex", { { "coordinates", QVariantList{ 1.0 } }, { "followLast", true } }, -1, "" },
		{ "bool", {}, 1, "Choose yes or no." }
	};
	for (const auto & c : cases) {
		PropertyModel model;
		Property * p = model.root()->addChild("p", c.m_type, QVariant());
		for (auto a = c.m_attributes.begin(); a != c.m_attributes.end(); ++a)
			p->setAttribute(a.key(), a.value());
		const std::string what = std::string(c.m_type) + " " + c.m_value.toString().toStdString();
		EXPECT_EQ(p->type()->check(*p, c.m_value), c.m_reason) << what;

		// the model asks the owner for accepted values only
		QSignalSpy requests(&model, &PropertyModel::valueEditRequested);
		const bool accepted = model.setData(model.indexOf(p, PropertyModel::C_Value), c.m_value);
		EXPECT_EQ(accepted, *c.m_reason == '\0') << what;
		EXPECT_EQ(requests.count(), accepted && p->type()->hasEditor() ? 1 : 0) << what;
		EXPECT_FALSE(p->value().isValid()) << what;
	}
}


TEST(QPBPropertyModel, EditsBecomeRequestsAndNeverChangeValues) {
	PropertyModel model;
	QSignalSpy requests(&model, &PropertyModel::valueEditRequested);
	Property * series = model.root()->addGroup("Series");
	Property * visible = series->addChild("Visible", QPB::BoolType::ID, true);
	Property * pen = series->addChild("Pen", QPB::PenType::ID, QPen(Qt::black, 1, Qt::SolidLine));
	Property * width = series->addChild("Width", QPB::NumberType::DOUBLE_ID, 1.0);
	width->setDefaultValue(1.0);

	// setValue() only shows
	width->setValue(2.0);
	EXPECT_EQ(requests.count(), 0);
	EXPECT_TRUE(model.data(model.indexOf(width), Qt::FontRole).value<QFont>().bold());	// modified
	width->setValue(1.0);
	EXPECT_FALSE(model.data(model.indexOf(width), Qt::FontRole).value<QFont>().bold());

	// the same value again is no request; a check box toggles through its check state
	EXPECT_TRUE(model.setData(model.indexOf(width, PropertyModel::C_Value), 1.0));
	EXPECT_TRUE(model.setData(model.indexOf(visible, PropertyModel::C_Value), Qt::Unchecked, Qt::CheckStateRole));
	ASSERT_EQ(requests.count(), 1);
	EXPECT_EQ(requests[0][0].value<Property *>(), visible);
	EXPECT_EQ(requests[0][1], QVariant(false));
	EXPECT_EQ(visible->value(), QVariant(true));

	// a part of a compound value requests the whole value
	EXPECT_TRUE(model.setData(model.indexOf(pen->child(QPB::PenType::SP_Width), PropertyModel::C_Value), 2.5));
	EXPECT_TRUE(model.setData(model.indexOf(pen->child(QPB::PenType::SP_Style), PropertyModel::C_Value),
							  static_cast<int>(Qt::DotLine)));
	ASSERT_EQ(requests.count(), 3);
	EXPECT_EQ(requests[1][0].value<Property *>(), pen);
	EXPECT_EQ(requests[1][1].value<QPen>(), QPen(Qt::black, 2.5, Qt::SolidLine));
	EXPECT_EQ(requests[2][1].value<QPen>(), QPen(Qt::black, 1, Qt::DotLine));	// from the shown pen
	EXPECT_FALSE(model.setData(model.indexOf(pen, PropertyModel::C_Value), QPen(Qt::red)));	// no editor

	// a disabled group disables all below it
	series->setEnabled(false);
	EXPECT_EQ(model.flags(model.indexOf(pen->child(0), PropertyModel::C_Value)), Qt::NoItemFlags);
	EXPECT_FALSE(model.setData(model.indexOf(width, PropertyModel::C_Value), 3.0));
	series->setEnabled(true);
	EXPECT_TRUE(model.flags(model.indexOf(width, PropertyModel::C_Value)) & Qt::ItemIsEditable);
	EXPECT_FALSE(model.flags(model.indexOf(width, PropertyModel::C_Name)) & Qt::ItemIsEditable);
	EXPECT_EQ(requests.count(), 3);
}
