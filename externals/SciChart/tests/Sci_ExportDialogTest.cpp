// The export dialog driven through its widgets, headless: file names, size fields, messages,
// settings kept for the next use, previews and the written files.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>

#include <qwt_plot.h>

#include <Sci_Export2BitmapWidget.h>
#include <Sci_Export2VectorWidget.h>
#include <Sci_ExportDialog.h>

#include "Sci_ExportTestSupport.h"
#include "Sci_TestSupport.h"

using namespace SciTest;

namespace {

/*! A dialog for the test plot, with recorded messages. */
class SciExportDialog : public ::testing::Test {
protected:
	void SetUp() override {
		m_plot = createTestPlot();
		m_dialog.reset(new SCI::ExportDialog(m_plot.get()));
		m_dialog->setMessageReporter(&m_reporter);
	}

	template <typename T>
	T * child(const char * name) const {
		T * w = m_dialog->findChild<T *>(name);
		EXPECT_NE(w, nullptr) << name;
		return w;
	}
	/*! A named child of one of the tabs. */
	template <typename T>
	T * tabChild(bool vectorTab, const char * name) const {
		QWidget * tab = vectorTab ? static_cast<QWidget *>(m_dialog->findChild<SCI::Export2VectorWidget *>())
								  : static_cast<QWidget *>(m_dialog->findChild<SCI::Export2BitmapWidget *>());
		T * w = tab->findChild<T *>(name);
		EXPECT_NE(w, nullptr) << name;
		return w;
	}
	/*! Types text into a size field of a tab and finishes editing. */
	void edit(bool vectorTab, const char * name, const QString & text) {
		QLineEdit * e = tabChild<QLineEdit>(vectorTab, name);
		e->setText(text);
		emit e->editingFinished();
	}
	QString fieldText(bool vectorTab, const char * name) const {
		return tabChild<QLineEdit>(vectorTab, name)->text();
	}
	void showTab(bool vectorTab) {
		child<QTabWidget>("tabWidget")->setCurrentIndex(vectorTab ? 1 : 0);
	}
	/*! Enters a file name and clicks "Export to file". */
	void exportTo(const QString & fileName) {
		child<QLineEdit>("lineEditExportFilename")->setText(fileName);
		child<QPushButton>("pushButtonSave")->click();
	}
	/*! The single message recorded since the last call, as "title|text". */
	QString takeMessage() {
		QString s;
		if (m_reporter.m_messages.size() == 1)
			s = m_reporter.m_messages[0].m_title + "|" + m_reporter.m_messages[0].m_text;
		else
			s = QString("%1 messages").arg(m_reporter.m_messages.size());
		m_reporter.m_messages.clear();
		return s;
	}

	std::unique_ptr<QwtPlot>			m_plot;
	std::unique_ptr<SCI::ExportDialog>	m_dialog;
	RecordingReporter					m_reporter;
};

} // namespace


TEST_F(SciExportDialog, FileNamesAreCheckedAndCorrectedPerTab) {
	QLineEdit * fileName = child<QLineEdit>("lineEditExportFilename");

	exportTo("  ");
	EXPECT_EQ(takeMessage(), "Export error|Please enter/select a filename!");
	EXPECT_NE(m_dialog->result(), QDialog::Accepted);

	// the name is corrected for the tab shown (the rules are ExportFileName's): a .tif becomes a PNG file
	const QString png = scratchPath("dialog_chart.png");
	QFile::remove(png);
	exportTo(scratchPath("dialog_chart.tif"));
	EXPECT_EQ(takeMessage(), "0 messages");
	EXPECT_EQ(fileName->text(), png);
	EXPECT_EQ(m_dialog->result(), QDialog::Accepted);
	EXPECT_EQ(QImageReader(png).format(), QByteArray("png"));

	// a file that cannot be written keeps the dialog open with the message
	m_dialog->setResult(QDialog::Rejected);
	const QString unwritable = scratchPath("no_such_dir/chart.png");
	exportTo(unwritable);
	EXPECT_EQ(takeMessage(), "Export error|Error writing file '" + unwritable + ".");
	EXPECT_NE(m_dialog->result(), QDialog::Accepted);
}


TEST_F(SciExportDialog, VectorSizesAreValidated) {
	showTab(true);
	tabChild<QCheckBox>(true, "checkBoxAspectRatio")->setChecked(false);
	QPushButton * save = child<QPushButton>("pushButtonSave");
	QPushButton * copy = child<QPushButton>("pushButtonCopyToClipboard");
	const QString svg = scratchPath("dialog_size.svg");
	QFile::remove(svg);

	edit(true, "lineEditMMX", "801");
	edit(true, "lineEditMMY", "100");
	EXPECT_TRUE(save->isEnabled());
	exportTo(svg);
	EXPECT_EQ(takeMessage(), "Export chart|Dimensions too large!");
	EXPECT_NE(m_dialog->result(), QDialog::Accepted);
	EXPECT_FALSE(QFileInfo::exists(svg));

	for (const char * bad : { "0", "abc" }) {
		SCOPED_TRACE(bad);
		edit(true, "lineEditMMX", bad);
		EXPECT_EQ(tabChild<QLineEdit>(true, "lineEditMMX")->toolTip(), "A positive number is required.");
		EXPECT_FALSE(save->isEnabled());
		EXPECT_FALSE(copy->isEnabled());
	}
	edit(true, "lineEditMMX", "800");
	EXPECT_TRUE(tabChild<QLineEdit>(true, "lineEditMMX")->toolTip().isEmpty());

	// with the aspect ratio kept, a width gives the height in the chart's proportion 3:2
	tabChild<QCheckBox>(true, "checkBoxAspectRatio")->setChecked(true);
	edit(true, "lineEditMMX", "150");
	EXPECT_EQ(fieldText(true, "lineEditMMY"), "100");
	edit(true, "lineEditMMY", "40");
	EXPECT_EQ(fieldText(true, "lineEditMMX"), "60");
	// in German with a decimal comma
	QLocale::setDefault(QLocale(QLocale::German));
	edit(true, "lineEditMMY", "41");
	EXPECT_EQ(fieldText(true, "lineEditMMX"), "61,5");
	QLocale::setDefault(QLocale::c());
}


TEST_F(SciExportDialog, SettingsAndLastUsedSizesCarryOverToTheNextUse) {
	// a stored list of last used sizes: unreadable entries are dropped, ten are offered
	SCI::ExportSettings stored;
	stored.m_dimensionHistory << "garbage" << "50x40";
	for (int i = 1; i <= 12; ++i)
		stored.m_dimensionHistory << QString("%1x10").arg(i);
	m_dialog->setSettings(stored);
	QComboBox * combo = tabChild<QComboBox>(true, "comboBoxLastPlotDimensions");
	ASSERT_EQ(combo->count(), 11);
	EXPECT_EQ(combo->itemText(1), "50x40");

	// choosing an entry fills the fields and moves it to the front; valid edits are stored too
	showTab(true);
	tabChild<QCheckBox>(true, "checkBoxAspectRatio")->setChecked(false);
	combo->setCurrentIndex(combo->findText("3x10"));
	EXPECT_EQ(fieldText(true, "lineEditMMX"), "3");
	edit(true, "lineEditMMX", "120");
	edit(true, "lineEditMMY", "0");
	edit(true, "lineEditMMY", "80.5");
	const QString svg = scratchPath("dialog_settings.svg");
	exportTo(svg);
	EXPECT_EQ(takeMessage(), "0 messages");
	SCI::ExportSettings used = m_dialog->settings();
	EXPECT_EQ(used.m_dimensionHistory.mid(0, 4), QStringList({"120x80.5", "120x10", "3x10", "50x40"}));
	EXPECT_EQ(used.m_dimensionHistory.size(), 10);

	// the next dialog opens as the last one was left; an export stores its size without an edit
	used.m_bitmapSize = QSize(1000, 700);
	used.m_vectorSizeMM = QSizeF(70, 30);
	SCI::ExportDialog next(m_plot.get());
	next.setMessageReporter(&m_reporter);
	next.setSettings(used);
	EXPECT_EQ(next.fileName(), svg);
	EXPECT_EQ(next.findChild<SCI::Export2BitmapWidget *>()->pixelSize(), QSize(1000, 700));
	next.findChild<QPushButton *>("pushButtonSave")->click();
	EXPECT_EQ(takeMessage(), "0 messages");
	EXPECT_EQ(next.settings().m_dimensionHistory.first(), "70x30");
}


TEST_F(SciExportDialog, BitmapSizesAreLinkedThroughTheResolution) {
	QSpinBox * dpi = tabChild<QSpinBox>(false, "spinBox_resolution");
	QLabel * unscaled = tabChild<QLabel>(false, "labelPreviewUnscaled");

	// pixel mode: the pixels stay, millimetres follow: 600 px at 300 dpi = 50.8 mm, 400 px = 33.87 mm
	dpi->setValue(300);
	EXPECT_EQ(fieldText(false, "lineEditMMX") + " " + fieldText(false, "lineEditMMY"), "50.8 33.9");
	// the chart's proportion is 3:2
	edit(false, "lineEditPixelX", "900");
	EXPECT_EQ(fieldText(false, "lineEditPixelY"), "600");
	EXPECT_EQ(unscaled->pixmap(Qt::ReturnByValue).size(), QSize(900, 600));

	// millimetre mode: the millimetres stay, pixels follow: 100 mm at 300 dpi = 1181.1 px;
	// 100 mm / 1.5 = 66.67 mm (shown as 66.7) = 787.4 px
	tabChild<QRadioButton>(false, "radioButtonMM")->setChecked(true);
	EXPECT_FALSE(tabChild<QLineEdit>(false, "lineEditPixelX")->isEnabled());
	edit(false, "lineEditMMX", "100");
	EXPECT_EQ(fieldText(false, "lineEditMMY") + " " + fieldText(false, "lineEditPixelX") + " " + fieldText(false, "lineEditPixelY"), "66.7 1181 787");
	dpi->setValue(150);
	EXPECT_EQ(fieldText(false, "lineEditMMX") + " " + fieldText(false, "lineEditPixelX"), "100 591");

	// going to millimetres and back keeps the pixels entered at every resolution, although
	// the millimetres shown are rounded (1000 px at 600 dpi are 42.33 mm, shown as 42.3)
	const SCI::Export2BitmapWidget * bitmap = m_dialog->findChild<SCI::Export2BitmapWidget *>();
	tabChild<QCheckBox>(false, "checkBoxAspectRatio")->setChecked(false);
	for (int resolution : { 72, 300, 1200 }) {
		for (int pixels : { 999, 1000, 1234 }) {
			dpi->setValue(resolution);
			tabChild<QRadioButton>(false, "radioButtonPixels")->setChecked(true);
			edit(false, "lineEditPixelX", QString::number(pixels));
			tabChild<QRadioButton>(false, "radioButtonMM")->setChecked(true);
			tabChild<QRadioButton>(false, "radioButtonPixels")->setChecked(true);
			EXPECT_EQ(bitmap->pixelSize().width(), pixels) << pixels << " px at " << resolution << " dpi";
		}
	}
	// a bitmap too large for the previews is still exported
	tabChild<QRadioButton>(false, "radioButtonPixels")->setChecked(true);
	edit(false, "lineEditPixelX", "4100");
	edit(false, "lineEditPixelY", "30");
	EXPECT_EQ(unscaled->text(), "Bitmap too large to preview.");
	const QString wide = scratchPath("dialog_wide.png");
	exportTo(wide);
	EXPECT_EQ(QImage(wide).size(), QSize(4100, 30));

	// absurd sizes are refused when the image cannot be created
	edit(false, "lineEditPixelX", "1e9");
	edit(false, "lineEditPixelY", "1e9");
	exportTo(wide);
	EXPECT_EQ(takeMessage(), "Export error|Cannot create a bitmap of 1000000 x 1000000 pixels.");

	edit(false, "lineEditPixelY", "12.5");
	EXPECT_FALSE(child<QPushButton>("pushButtonSave")->isEnabled());
}
