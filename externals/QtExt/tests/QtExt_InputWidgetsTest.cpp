#include <gtest/gtest.h>

#include <QApplication>
#include <QColorDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <QtExt_ColorListWidget.h>
#include <QtExt_ValidatingLineEdit.h>
#include <QtExt_WindowGeometry.h>

namespace {

/*! Replaces the text of a focused edit by typing. */
void type(QLineEdit & edit, const QString & text) {
	edit.selectAll();
	QTest::keyClick(&edit, Qt::Key_Delete);
	QTest::keyClicks(&edit, text);
}

/*! True when the widget is marked invalid: its base colour is not the application's. */
bool marked(const QWidget & w) {
	return w.palette().color(QPalette::Base) != QApplication::palette(&w).color(QPalette::Base);
}

} // namespace


TEST(QtExtValidatingLineEdit, ReadsLocaleAndCFormWithinRange) {
	QtExt::ValidatingLineEdit edit;
	edit.setLocale(QLocale(QLocale::German, QLocale::Germany));
	edit.setMinimum(0);
	edit.setMaximum(100, false);
	edit.setToolTip("Share in %");
	const struct {
		const char *	m_text;
		double			m_value;	// -1: invalid
	} cases[] = {
		{ "1,5", 1.5 }, { " 1.5 ", 1.5 }, { "0", 0 }, { "1e1", 10 },
		{ "100", -1 }, { "1.000,5", -1 }, { "abc", -1 }, { "", -1 }, { "inf", -1 }
	};
	for (const auto & c : cases) {
		edit.setText(c.m_text);
		EXPECT_EQ(marked(edit), c.m_value < 0) << c.m_text;
		if (c.m_value >= 0)
			EXPECT_TRUE(edit.isValid() && edit.value() == c.m_value && edit.toolTip() == "Share in %") << c.m_text;
		else
			EXPECT_TRUE(!edit.isValid() && edit.toolTip().startsWith(edit.invalidReason() + "\n\n")) << c.m_text;
	}
	edit.setText("100");
	EXPECT_EQ(edit.invalidReason(), "Value must be at least 0 and less than 100.");
	edit.setText("abc");
	EXPECT_EQ(edit.invalidReason(), "'abc' is not a number.");

	// an English locale takes no decimal comma; whole numbers only refuse fractions
	edit.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
	edit.setInteger(true);
	edit.setMinimum(-3, false);
	edit.setMaximum(QtExt::ValidatingLineEdit::UNBOUNDED);
	for (const char * text : { "1,5", "2.5", "1e3", "-3" })
		EXPECT_FALSE((edit.setText(text), edit.isValid())) << text;
	edit.setText("-2");
	EXPECT_EQ(edit.value(), -2);
}


TEST(QtExtValidatingLineEdit, ConfirmsValidEditsOnlyAndEscapeRestores) {
	QtExt::ValidatingLineEdit edit;
	edit.setLocale(QLocale::c());
	edit.setMaximum(10);
	edit.setValue(1.0/3);
	EXPECT_EQ(edit.text(), "0.333333");
	EXPECT_EQ(edit.value(), 1.0/3);			// shown rounded, kept exact
	QSignalSpy confirmed(&edit, &QtExt::ValidatingLineEdit::valueConfirmed);

	type(edit, "7");
	QTest::keyClick(&edit, Qt::Key_Return);
	QTest::keyClick(&edit, Qt::Key_Return);		// nothing new to confirm
	type(edit, "12");
	QTest::keyClick(&edit, Qt::Key_Return);
	ASSERT_EQ(confirmed.count(), 1);
	EXPECT_EQ(confirmed[0][0].toDouble(), 7);
	EXPECT_EQ(edit.value(), 7);					// the last valid value while the text is not

	QTest::keyClick(&edit, Qt::Key_Escape);
	EXPECT_EQ(edit.text(), "7");
	EXPECT_FALSE(marked(edit));

	// leaving the field confirms as Enter does
	type(edit, "8");
	QFocusEvent focusOut(QEvent::FocusOut);
	QApplication::sendEvent(&edit, &focusOut);
	ASSERT_EQ(confirmed.count(), 2);
	EXPECT_EQ(confirmed[1][0].toDouble(), 8);
}


TEST(QtExtColorListWidget, ChoosesByKeyboardMouseAndDialog) {
	QtExt::ColorListWidget list;
	list.setNoColorEntry(true);
	list.show();
	QSignalSpy chosen(&list, &QtExt::ColorListWidget::colorChosen);

	list.setCurrentColor(QColor("#64b5f6"));		// "Blue"
	QTest::keyClick(&list, Qt::Key_Down);
	QTest::keyClick(&list, Qt::Key_Return);
	list.setCurrentRow(0);
	QTest::keyClick(&list, Qt::Key_Enter);
	ASSERT_EQ(chosen.count(), 2);
	EXPECT_EQ(chosen[0][0].value<QColor>(), QColor("#9575cd"));
	EXPECT_FALSE(chosen[1][0].value<QColor>().isValid());		// "No colour"

	// "Other..." asks the colour dialog, which starts at the current colour; a colour that is not
	// offered gets an entry of its own, once
	const int entries = list.count();
	list.setCurrentColor(QColor(1, 2, 3));
	list.setCurrentColor(QColor(1, 2, 3));
	QTimer::singleShot(0, []() {
		QColorDialog * dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
		ASSERT_NE(dialog, nullptr);
		EXPECT_EQ(dialog->currentColor(), QColor(1, 2, 3));
		dialog->setCurrentColor(QColor(10, 20, 30));
		dialog->accept();
	});
	QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(list.count() - 1)).center());
	ASSERT_EQ(chosen.count(), 3);
	EXPECT_EQ(chosen[2][0].value<QColor>(), QColor(10, 20, 30));
	EXPECT_EQ(list.count(), entries + 2);

	// as popup it closes after a choice
	list.showPopup(QPoint(10, 10));
	QTest::keyClick(&list, Qt::Key_Return);
	EXPECT_FALSE(list.isVisible());
}


TEST(QtExtWindowGeometry, StoredGeometriesAreBroughtOntoTheScreen) {
	const QRect screen(0, 20, 1366, 748);
	// inside: kept
	EXPECT_EQ(QtExt::WindowGeometry::fitted(QRect(100, 50, 800, 600), screen), QRect(100, 50, 800, 600));
	// wider than the screen and beyond its right edge, as saved on a larger screen
	EXPECT_EQ(QtExt::WindowGeometry::fitted(QRect(1500, 100, 2307, 900), screen), QRect(0, 20, 1366, 748));
	// partly off to the left and below
	EXPECT_EQ(QtExt::WindowGeometry::fitted(QRect(-300, 500, 800, 600), screen), QRect(0, 168, 800, 600));
}
