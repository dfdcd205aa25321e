// The log panel's lines (type, colour, filter, bound) and the log file window.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QColor>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>

#include <ZEB_MessageHandler.h>

#include <QtExt_LogFileDialog.h>
#include <QtExt_LogModel.h>

#include "QtExt_TestSupport.h"

namespace {

/*! The rows of the model as "type:text". */
QStringList rows(const QAbstractItemModel & model) {
	QStringList result;
	for (int r = 0; r < model.rowCount(); ++r) {
		const QModelIndex i = model.index(r, 0);
		result.append(i.data(QtExt::LogModel::TypeRole).toString() + ":" + i.data().toString());
	}
	return result;
}

} // namespace


TEST(QtExtLogModel, LinesAreColouredFilteredAndBounded) {
	QtExt::LogModel model;
	// checks every insertion and removal against the rows the model reports; a fault aborts
	QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
	model.append(ZEB::MSG_PROGRESS, "Reading 'a.out'");
	model.append(ZEB::MSG_CONT, "done");
	model.append(ZEB::MSG_ERROR, "Cannot read 'b.out'\nFile is truncated");
	model.append(ZEB::MSG_WARNING, "Unit converted");
	model.append(ZEB::MSG_DEBUG, "layout");
	model.append(42, "unknown type");
	EXPECT_EQ(rows(model), QStringList({ "0:Reading 'a.out' done", "3:Cannot read 'b.out'", "3:File is truncated",
										 "2:Unit converted", "4:layout", "0:unknown type" }));

	// errors red, debug lines grey, progress in the view's own colour
	const QColor error = model.index(1).data(Qt::ForegroundRole).value<QColor>();
	const QColor debug = model.index(4).data(Qt::ForegroundRole).value<QColor>();
	EXPECT_TRUE(error.red() > 150 && error.green() < 60 && error.blue() < 60) << error.name().toStdString();
	EXPECT_TRUE(debug.red() == debug.green() && debug.green() == debug.blue() && debug.red() > 80);
	EXPECT_FALSE(model.index(0).data(Qt::ForegroundRole).isValid());

	// hidden types keep their lines; a continuation goes on with a hidden line
	model.setTypeShown(ZEB::MSG_ERROR, false);
	model.setTypeShown(ZEB::MSG_PROGRESS, false);
	model.append(ZEB::MSG_PROGRESS, "Writing");
	model.append(ZEB::MSG_CONT, "ok");
	EXPECT_EQ(rows(model), QStringList({ "2:Unit converted", "4:layout" }));
	model.setTypeShown(ZEB::MSG_PROGRESS, true);
	EXPECT_EQ(rows(model).last(), "0:Writing ok");

	// the oldest lines go, shown or hidden, and their rows with them
	for (int i = 0; i < 6; ++i)
		model.append(i % 2 == 0 ? ZEB::MSG_ERROR : ZEB::MSG_WARNING, QString::number(i));
	model.setMaxLines(4);
	EXPECT_EQ(rows(model), QStringList({ "2:3", "2:5" }));
	model.setTypeShown(ZEB::MSG_ERROR, true);
	EXPECT_EQ(rows(model), QStringList({ "3:2", "2:3", "3:4", "2:5" }));
	model.append(ZEB::MSG_DEBUG, "7\n8");
	EXPECT_EQ(rows(model), QStringList({ "3:4", "2:5", "4:7", "4:8" }));

	// after clearing, a continuation without line to continue is a line of its own
	model.clear();
	model.append(ZEB::MSG_CONT, "rest");
	EXPECT_EQ(rows(model), QStringList({ "0:rest" }));
}


TEST(QtExtLogFileDialog, ShowsTheFileScrolledToItsEndAndReloads) {
	const QString dir = QtExtTest::scratchDir("logfile");
	const QString log = dir + "/OrvaneApp.log";
	QByteArray content;
	for (int i = 0; i < 300; ++i)
		content += "line " + QByteArray::number(i) + "\n";
	ASSERT_TRUE(QtExtTest::writeFile(log, content));

	QtExt::LogFileDialog dialog;
	dialog.setLogFile(log);
	dialog.show();
	EXPECT_EQ(dialog.text(), QString::fromUtf8(content));
	const QScrollBar * bar = dialog.findChild<QPlainTextEdit *>()->verticalScrollBar();
	EXPECT_TRUE(bar->maximum() > 0 && bar->value() == bar->maximum());

	// reloaded, of a huge file the last whole lines, scrolled to the end again
	QByteArray huge;
	for (int i = 0; huge.size() <= QtExt::LogFileDialog::MAX_BYTES; ++i)
		huge += "a long line of the log file, number " + QByteArray::number(i) + "\n";
	ASSERT_TRUE(QtExtTest::writeFile(log, huge));
	dialog.findChild<QPushButton *>("reloadButton")->click();
	EXPECT_EQ(bar->value(), bar->maximum());
	EXPECT_LE(dialog.text().size(), QtExt::LogFileDialog::MAX_BYTES);
	EXPECT_TRUE(dialog.text().startsWith("a long line") && huge.endsWith(dialog.text().toUtf8()));

	QFile::remove(log);
	dialog.onReload();
	EXPECT_TRUE(dialog.text().isEmpty());
	EXPECT_EQ(dialog.findChild<QLabel *>()->text(), "The log file '" + log + "' cannot be read.");
}
