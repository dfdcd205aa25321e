#include <gtest/gtest.h>

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <QtExt_BrowseFilenameWidget.h>
#include <QtExt_ColorListWidget.h>
#include <QtExt_ValidatingLineEdit.h>
#include <QtExt_WindowGeometry.h>

#include "QtExt_TestSupport.h"

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
		{ "1,5", 1.5 }, { " 1.5 ", 1.5 }, { "0", 0 }, { "99,999", 99.999 }, { "1e1", 10 },
		{ "100", -1 }, { "-0,5", -1 }, { "1.000,5", -1 }, { "abc", -1 }, { "", -1 }, { "inf", -1 }
	};
	for (const auto & c : cases) {
		edit.setText(c.m_text);
		EXPECT_EQ(edit.isValid(), c.m_value >= 0) << c.m_text;
		EXPECT_EQ(marked(edit), c.m_value < 0) << c.m_text;
		if (c.m_value >= 0) {
			EXPECT_DOUBLE_EQ(edit.value(), c.m_value) << c.m_text;
			EXPECT_EQ(edit.toolTip(), "Share in %");
		}
		else {
			EXPECT_TRUE(edit.toolTip().startsWith(edit.invalidReason() + "\n\n")) << c.m_text;
		}
	}
	edit.setText("100");
	EXPECT_EQ(edit.invalidReason(), "Value must be at least 0 and less than 100.");
	edit.setText("abc");
	EXPECT_EQ(edit.invalidReason(), "'abc' is not a number.");

	// an English locale takes no decimal comma; whole numbers only refuse fractions
	edit.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
	edit.setText("1,5");
	EXPECT_FALSE(edit.isValid());
	edit.setInteger(true);
	edit.setMinimum(-3, false);
	edit.setMaximum(QtExt::ValidatingLineEdit::UNBOUNDED);
	for (const char * text : { "2.5", "1e3", "-3" })
		EXPECT_FALSE((edit.setText(text), edit.isValid())) << text;
	edit.setText("-2");
	EXPECT_EQ(edit.value(), -2);
	edit.setText("-4");
	EXPECT_EQ(edit.invalidReason(), "Value must be greater than -3.");
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
	EXPECT_TRUE(edit.isValid());
	EXPECT_FALSE(marked(edit));

	// leaving the field confirms as Enter does
	type(edit, "8");
	QFocusEvent focusOut(QEvent::FocusOut);
	QApplication::sendEvent(&edit, &focusOut);
	ASSERT_EQ(confirmed.count(), 2);
	EXPECT_EQ(confirmed[1][0].toDouble(), 8);
}


TEST(QtExtValidatingLineEdit, FormatNumber) {
	const QLocale c = QLocale::c();
	const QLocale de(QLocale::German, QLocale::Germany);
	using QtExt::ValidatingLineEdit;
	EXPECT_EQ(ValidatingLineEdit::formatNumber(2.5, 6, c), "2.5");
	EXPECT_EQ(ValidatingLineEdit::formatNumber(1.0/3, 6, c), "0.333333");
	EXPECT_EQ(ValidatingLineEdit::formatNumber(100, 6, c), "100");
	EXPECT_EQ(ValidatingLineEdit::formatNumber(-0.0, 6, c), "0");
	EXPECT_EQ(ValidatingLineEdit::formatNumber(-6e-7, 6, c), "-0.000001");
	EXPECT_EQ(ValidatingLineEdit::formatNumber(-4e-7, 6, c), "-4e-07");
	EXPECT_EQ(ValidatingLineEdit::formatNumber(1e20, 3, c), "1e+20");
	EXPECT_EQ(ValidatingLineEdit::formatNumber(1234567.2, 3, de), "1234567,2");
	EXPECT_EQ(ValidatingLineEdit::formatNumber(2.75, 0, de), "3");
}


TEST(QtExtBrowseFilenameWidget, MarksPathsThatDoNotFitTheMode) {
	const QString dir = QtExtTest::scratchDir("browse");
	const QString file = QDir(dir).filePath("a.o2");
	ASSERT_TRUE(QtExtTest::writeFile(file, "x"));
	const QString missing = QDir(dir).filePath("gone");

	QtExt::BrowseFilenameWidget w(QtExt::BrowseFilenameWidget::Directory);
	QSignalSpy changed(&w, &QtExt::BrowseFilenameWidget::filenameChanged);
	QLineEdit * edit = w.lineEdit();
	EXPECT_FALSE(w.isAcceptable());
	EXPECT_FALSE(marked(*edit));	// empty is incomplete, not wrong
	w.setFilename(dir);
	EXPECT_TRUE(w.isAcceptable());
	EXPECT_FALSE(marked(*edit));
	QTest::keyClicks(edit, "/gone");
	EXPECT_EQ(changed.count(), 6);
	EXPECT_EQ(changed.last()[0].toString(), missing);
	EXPECT_FALSE(w.isAcceptable());
	EXPECT_TRUE(marked(*edit));
	EXPECT_EQ(edit->toolTip(), QString("The folder '%1' does not exist.").arg(missing));
	w.setFilename(file);
	EXPECT_EQ(edit->toolTip(), QString("'%1' is not a folder.").arg(file));

	w.setMode(QtExt::BrowseFilenameWidget::OpenFile);
	EXPECT_TRUE(w.isAcceptable());
	EXPECT_FALSE(marked(*edit));
	w.setFilename(missing);
	EXPECT_TRUE(marked(*edit));
	w.setMode(QtExt::BrowseFilenameWidget::SaveFile);
	EXPECT_TRUE(w.isAcceptable());
	EXPECT_FALSE(marked(*edit));
	w.setFilename(dir);
	EXPECT_FALSE(w.isAcceptable());
}


TEST(QtExtColorListWidget, ChoosesByKeyboardMouseAndDialog) {
	QtExt::ColorListWidget list;
	list.setNoColorEntry(true);
	list.show();
	QSignalSpy chosen(&list, &QtExt::ColorListWidget::colorChosen);

	list.setCurrentColor(QColor("#64b5f6"));
	EXPECT_EQ(list.currentItem()->text(), "Blue");
	QTest::keyClick(&list, Qt::Key_Down);
	QTest::keyClick(&list, Qt::Key_Return);
	list.setCurrentRow(0);
	QTest::keyClick(&list, Qt::Key_Enter);
	ASSERT_EQ(chosen.count(), 2);
	EXPECT_EQ(chosen[0][0].value<QColor>(), QColor("#9575cd"));
	EXPECT_FALSE(chosen[1][0].value<QColor>().isValid());		// "No colour"

	// a colour that is not offered gets an entry of its own, once
	const int entries = list.count();
	list.setCurrentColor(QColor(1, 2, 3));
	list.setCurrentColor(QColor(1, 2, 3));
	EXPECT_EQ(list.count(), entries + 1);
	EXPECT_EQ(list.currentColor(), QColor(1, 2, 3));

	// "Other..." asks the colour dialog, which starts at the current colour
	QTimer::singleShot(0, []() {
		QColorDialog * dialog = qobject_cast<QColorDialog *>(QApplication::activeModalWidget());
		ASSERT_NE(dialog, nullptr);
		EXPECT_EQ(dialog->currentColor(), QColor(1, 2, 3));
		dialog->setCurrentColor(QColor(10, 20, 30));
		dialog->accept();
	});
	QListWidgetItem * other = list.item(list.count() - 1);
	EXPECT_EQ(other->text(), "Other...");
	QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(other).center());
	ASSERT_EQ(chosen.count(), 3);
	EXPECT_EQ(chosen[2][0].value<QColor>(), QColor(10, 20, 30));
	EXPECT_EQ(list.currentColor(), QColor(10, 20, 30));
	EXPECT_EQ(list.count(), entries + 2);

	// as popup it closes on Escape and after a choice
	list.showPopup(QPoint(10, 10));
	EXPECT_TRUE(list.isVisible());
	QTest::keyClick(&list, Qt::Key_Escape);
	EXPECT_FALSE(list.isVisible());
	list.showPopup(QPoint(10, 10));
	QTest::keyClick(&list, Qt::Key_Return);
	EXPECT_FALSE(list.isVisible());
	EXPECT_EQ(chosen.count(), 4);
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
