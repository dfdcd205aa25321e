#include <gtest/gtest.h>

#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QPen>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <QPB_ColorComboBox.h>
#include <QPB_CoordinateIndexType.h>
#include <QPB_FontEditor.h>
#include <QPB_NumberType.h>
#include <QPB_PenType.h>
#include <QPB_Property.h>
#include <QPB_PropertyDelegate.h>
#include <QPB_PropertyModel.h>
#include <QPB_PropertyView.h>
#include <QPB_StringType.h>

using QPB::Property;
using QPB::PropertyModel;

namespace {

/*! True when the widget is marked invalid: its base colour is not the application's. */
bool marked(const QWidget & w) {
	return w.palette().color(QPalette::Base) != QApplication::palette(&w).color(QPalette::Base);
}

/*! A model and a delegate whose editors live in a window that is never shown. */
struct EditorBench {
	EditorBench() : m_requests(&m_model, &PropertyModel::valueEditRequested) {}

	/*! An editor of p showing its value. */
	QWidget * open(Property * p) {
		const QModelIndex cell = m_model.indexOf(p, PropertyModel::C_Value);
		QWidget * editor = m_delegate.createEditor(&m_window, QStyleOptionViewItem(), cell);
		m_delegate.setEditorData(editor, cell);
		return editor;
	}
	/*! Hands the editor's content to the model; returns the number of requests that followed. */
	int commit(QWidget * editor, Property * p) {
		const int before = m_requests.count();
		m_delegate.setModelData(editor, &m_model, m_model.indexOf(p, PropertyModel::C_Value));
		return m_requests.count() - before;
	}
	/*! The value of the last request, which must be for p. */
	QVariant requested(const Property * p) {
		EXPECT_EQ(m_requests.last()[0].value<Property *>(), p);
		return m_requests.last()[1];
	}

	PropertyModel			m_model;
	QPB::PropertyDelegate	m_delegate;
	QWidget					m_window;
	QSignalSpy				m_requests;
};

} // namespace


TEST(QPBEditors, LineEditorsRequestValidEditedValuesOnly) {
	EditorBench b;
	Property * maximum = b.m_model.root()->addChild("Maximum", QPB::NumberType::DOUBLE_ID, 1.0/3);
	maximum->setAttribute(QPB::NumberType::Decimals, 3);
	maximum->setAttribute(QPB::NumberType::Minimum, 0.0);
	maximum->setAttribute(QPB::NumberType::Maximum, 10.0);
	QLineEdit * edit = qobject_cast<QLineEdit *>(b.open(maximum));
	ASSERT_NE(edit, nullptr);
	EXPECT_EQ(edit->text(), "0.333");
	EXPECT_EQ(b.commit(edit, maximum), 0);		// shown rounded, not edited: no request
	const struct {
		const char *	m_text;
		const char *	m_reason;
	} refused[] = {
		{ "abc", "'abc' is not a number." }, { "11", "Value must be between 0 and 10." }, { "", "Enter a number." }
	};
	for (const auto & r : refused) {
		edit->setText(r.m_text);
		EXPECT_EQ(b.commit(edit, maximum), 0) << r.m_text;
		EXPECT_TRUE(marked(*edit)) << r.m_text;
		EXPECT_EQ(edit->toolTip(), r.m_reason);
	}
	edit->setText("2.5");
	EXPECT_FALSE(marked(*edit));
	ASSERT_EQ(b.commit(edit, maximum), 1);
	EXPECT_EQ(b.requested(maximum), QVariant(2.5));
	EXPECT_EQ(maximum->value(), QVariant(1.0/3));

	Property * count = b.m_model.root()->addChild("Count", QPB::NumberType::INT_ID, 4);
	edit = qobject_cast<QLineEdit *>(b.open(count));
	EXPECT_EQ(edit->text(), "4");
	edit->setText("2.5");
	EXPECT_EQ(b.commit(edit, count), 0);
	edit->setText("-7");
	ASSERT_EQ(b.commit(edit, count), 1);
	EXPECT_EQ(b.requested(count).type(), QVariant::Int);
	EXPECT_EQ(b.requested(count), QVariant(-7));

	Property * unit = b.m_model.root()->addChild("Unit", QPB::StringType::ID, QString("C"));
	unit->setAttribute(QPB::StringType::NotEmpty, true);
	edit = qobject_cast<QLineEdit *>(b.open(unit));
	EXPECT_EQ(edit->text(), "C");
	edit->setText(" ");
	EXPECT_EQ(b.commit(edit, unit), 0);
	EXPECT_TRUE(marked(*edit));
	EXPECT_EQ(edit->toolTip(), "The text must not be empty.");
	edit->setText("K");
	EXPECT_FALSE(marked(*edit));
	ASSERT_EQ(b.commit(edit, unit), 1);
	EXPECT_EQ(b.requested(unit), QVariant("K"));

	// a part of a pen is edited like a number and requests the whole pen
	Property * pen = b.m_model.root()->addChild("Pen", QPB::PenType::ID, QPen(Qt::red, 1, Qt::DashLine));
	edit = qobject_cast<QLineEdit *>(b.open(pen->child(QPB::PenType::SP_Width)));
	EXPECT_EQ(edit->text(), "1");
	edit->setText("3");
	ASSERT_EQ(b.commit(edit, pen->child(QPB::PenType::SP_Width)), 1);
	EXPECT_EQ(b.requested(pen).value<QPen>(), QPen(Qt::red, 3, Qt::DashLine));
}


TEST(QPBEditors, ChoiceEditorsRequestTheChosenValue) {
	EditorBench b;
	Property * position = b.m_model.root()->addChild("Position", "enum", 1);
	position->setAttribute("names", QStringList{ "Inside", "Outside" });
	QComboBox * combo = qobject_cast<QComboBox *>(b.open(position));
	ASSERT_NE(combo, nullptr);
	EXPECT_EQ(combo->currentText(), "Outside");
	EXPECT_EQ(b.commit(combo, position), 0);
	combo->setCurrentIndex(0);
	ASSERT_EQ(b.commit(combo, position), 1);
	EXPECT_EQ(b.requested(position), QVariant(0));

	Property * time = b.m_model.root()->addChild("Time", QPB::CoordinateIndexType::ID, 2);
	time->setAttribute(QPB::CoordinateIndexType::Coordinates, QVariantList{ 0.0, 0.5, 36.0 });
	time->setAttribute(QPB::CoordinateIndexType::Unit, "h");
	time->setAttribute(QPB::CoordinateIndexType::FollowLast, true);
	combo = qobject_cast<QComboBox *>(b.open(time));
	QStringList entries;
	for (int i = 0; i < combo->count(); ++i)
		entries << combo->itemText(i);
	EXPECT_EQ(entries, QStringList({ "follow last time point", "0 h", "0.5 h", "36 h" }));
	EXPECT_EQ(combo->currentText(), "36 h");
	combo->setCurrentIndex(0);
	ASSERT_EQ(b.commit(combo, time), 1);
	EXPECT_EQ(b.requested(time), QVariant(QPB::CoordinateIndexType::FOLLOW_LAST));

	Property * start = b.m_model.root()->addChild("Start", "datetime", QDateTime(QDate(2024, 1, 31), QTime(6, 0)));
	QDateTimeEdit * dateEdit = qobject_cast<QDateTimeEdit *>(b.open(start));
	ASSERT_NE(dateEdit, nullptr);
	dateEdit->setDateTime(dateEdit->dateTime().addDays(1));
	ASSERT_EQ(b.commit(dateEdit, start), 1);
	EXPECT_EQ(b.requested(start), QVariant(QDateTime(QDate(2024, 2, 1), QTime(6, 0))));

	Property * font = b.m_model.root()->addChild("Font", "font", QFont("Sans", 9));
	QPB::FontEditor * fontEditor = qobject_cast<QPB::FontEditor *>(b.open(font));
	ASSERT_NE(fontEditor, nullptr);
	EXPECT_EQ(fontEditor->chosenFont(), QFont("Sans", 9));
	fontEditor->setChosenFont(QFont("Serif", 12));
	ASSERT_EQ(b.commit(fontEditor, font), 1);
	EXPECT_EQ(b.requested(font), QVariant(QFont("Serif", 12)));

	// colours: a named one, and one from the dialog, which commits as soon as it is chosen
	Property * color = b.m_model.root()->addChild("Colour", "color", QColor(1, 2, 3));
	QPB::ColorComboBox * colors = qobject_cast<QPB::ColorComboBox *>(b.open(color));
	ASSERT_NE(colors, nullptr);
	EXPECT_EQ(colors->currentText(), "#010203");
	colors->setCurrentIndex(colors->findText("Green"));
	ASSERT_EQ(b.commit(colors, color), 1);
	EXPECT_EQ(b.requested(color), QVariant(QColor("#00a000")));
	QObject::connect(&b.m_delegate, &QPB::PropertyDelegate::commitData, [&](QWidget * editor) {
		b.m_delegate.setModelData(editor, &b.m_model, b.m_model.indexOf(color, PropertyModel::C_Value));
	});
	QTimer::singleShot(0, []() {
		QColorDialog * dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
		ASSERT_NE(dialog, nullptr);
		EXPECT_EQ(dialog->currentColor(), QColor("#00a000"));
		dialog->setCurrentColor(QColor(10, 20, 30));
		dialog->accept();
	});
	emit colors->activated(colors->count() - 1);
	EXPECT_EQ(b.m_requests.count(), 6);
	EXPECT_EQ(b.requested(color), QVariant(QColor(10, 20, 30)));
	EXPECT_EQ(colors->currentText(), "#0a141e");
	EXPECT_EQ(color->value(), QVariant(QColor(1, 2, 3)));
}


TEST(QPBEditors, KeyboardMovesCommitsCancelsAndRefuses) {
	PropertyModel model;
	Property * chart = model.root()->addGroup("Chart");
	Property * title = chart->addChild("Title", QPB::StringType::ID, QString("Climate"));
	chart->addChild("Pen", QPB::PenType::ID, QPen());			// no editor of its own, parts collapsed
	Property * visible = chart->addChild("Visible", "bool", true);
	Property * maximum = model.root()->addGroup("Axis")->addChild("Maximum", QPB::NumberType::DOUBLE_ID, 5.0);
	maximum->setAttribute(QPB::NumberType::Maximum, 10.0);
	QSignalSpy requests(&model, &PropertyModel::valueEditRequested);

	QWidget window;
	QLineEdit * before = new QLineEdit(&window);
	QPB::PropertyView * view = new QPB::PropertyView(&window);
	QVBoxLayout * layout = new QVBoxLayout(&window);
	layout->addWidget(before);
	layout->addWidget(view);
	view->setModel(&model);
	window.resize(400, 300);
	window.show();
	window.activateWindow();
	ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
	before->setFocus();
	EXPECT_TRUE(view->isExpanded(model.indexOf(chart)));
	const auto key = [](int k, Qt::KeyboardModifiers m = Qt::NoModifier) {
		QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(k), m);
		QApplication::processEvents();		// Enter commits and closes queued
	};
	const auto editing = [&](const Property * p) {
		const QModelIndex cell = model.indexOf(p, PropertyModel::C_Value);
		return view->currentIndex() == cell && view->indexWidget(cell) != nullptr;
	};

	key(Qt::Key_Tab);
	EXPECT_TRUE(editing(title));		// entered with Tab
	key(Qt::Key_Tab);			// past the pen to the check box, which has no editor
	EXPECT_EQ(view->currentIndex(), model.indexOf(visible, PropertyModel::C_Value));
	key(Qt::Key_Space);
	key(Qt::Key_Tab);
	EXPECT_TRUE(editing(maximum));
	key(Qt::Key_Backtab, Qt::ShiftModifier);
	key(Qt::Key_Backtab, Qt::ShiftModifier);
	EXPECT_TRUE(editing(title));
	ASSERT_EQ(requests.count(), 1);
	EXPECT_EQ(requests[0][1], QVariant(false));

	// Escape cancels; an invalid text is refused with its reason and the editor stays open
	QTest::keyClicks(QApplication::focusWidget(), " chart");
	key(Qt::Key_Escape);
	EXPECT_EQ(view->indexWidget(model.indexOf(title, PropertyModel::C_Value)), nullptr);
	view->setCurrentIndex(model.indexOf(maximum, PropertyModel::C_Value));
	key(Qt::Key_Return);
	ASSERT_TRUE(editing(maximum));
	QLineEdit * edit = qobject_cast<QLineEdit *>(QApplication::focusWidget());
	ASSERT_NE(edit, nullptr);
	edit->selectAll();
	QTest::keyClicks(edit, "12");
	key(Qt::Key_Return);
	key(Qt::Key_Tab);
	ASSERT_TRUE(editing(maximum));
	EXPECT_EQ(edit->toolTip(), "Value must be at most 10.");
	EXPECT_EQ(requests.count(), 1);

	edit->selectAll();
	QTest::keyClicks(edit, "7,5");		// the C locale takes no decimal comma
	key(Qt::Key_Return);
	ASSERT_TRUE(editing(maximum));
	edit->selectAll();
	QTest::keyClicks(edit, "7.5");
	key(Qt::Key_Return);
	EXPECT_FALSE(editing(maximum));
	ASSERT_EQ(requests.count(), 2);
	EXPECT_EQ(requests[1][0].value<Property *>(), maximum);
	EXPECT_EQ(requests[1][1], QVariant(7.5));
	EXPECT_EQ(maximum->value(), QVariant(5.0));
	EXPECT_EQ(title->value(), QVariant("Climate"));
}
