#ifndef Sci_ExportDialogH
#define Sci_ExportDialogH

#include <memory>
#include <optional>

#include <QDialog>
#include <QPointer>

#include "Sci_ExportSettings.h"

class QwtPlot;

namespace SCI {

class MessageBoxReporter;

/*! The dialog "Export chart": exports a chart to a bitmap or vector graphics file, or copies it
	to the clipboard. It holds the export file name, the components of the chart to draw, the
	bitmap tab (Export2BitmapWidget) and the vector graphics tab (Export2VectorWidget, with the
	preview); the rendering itself is done by ChartExporter. After a successful export the dialog
	closes with acceptance; a failure is shown in a message box and leaves the dialog open.

	The static exportChart() is the same export without user interaction, for the command line.
*/
class ExportDialog : public QDialog {
	Q_OBJECT
public:
	/*! Resolution of command-line bitmap exports when none is given, in dots per inch. */
	static constexpr int DEFAULT_RESOLUTION = 300;

	explicit ExportDialog(QwtPlot * plot, QWidget * parent = nullptr);
	~ExportDialog() override;

	/*! Replaces the message boxes, e.g. by a recorder in tests; the dialog does not take
		ownership. Null restores the message boxes.
	*/
	void setMessageReporter(MessageBoxReporter * reporter);

	/*! The export file name in the dialog. */
	QString fileName() const;
	/*! Puts a file name into the dialog and shows the tab that writes its file type. */
	void setFileName(const QString & fileName);

	/*! Takes over file name, tab, sizes and last used vector sizes of an earlier use. */
	void setSettings(const ExportSettings & settings);
	/*! The file name, tab, sizes and last used vector sizes as they are now, for the next use;
		a successful vector export has added its size to the last used ones. */
	ExportSettings settings() const;

	/*! Exports chart to fileName without user interaction (command-line export). The file type
		follows from the extension; sizePx is the size in pixels (vector graphics get the size
		these pixels have on screen). A resolution may only be given for bitmaps and must be
		positive; without it bitmaps get DEFAULT_RESOLUTION. Errors are written to the log.
		\return True when the file was written.
	*/
	static bool exportChart(QwtPlot * chart, const QString & fileName, const QSize & sizePx,
							std::optional<int> resolution = std::nullopt);

public slots:
	/*! Enables or disables the export buttons; the tabs call it when their settings become
		valid or invalid (only the visible tab decides).
	*/
	void onExportButtonsEnabled(bool enabled);

private slots:
	void on_pushButtonSave_clicked();
	void on_pushButtonCopyToClipboard_clicked();
	void on_toolButtonBrowseFilename_clicked();
	void on_tabWidget_currentChanged(int index);
	/*! Hands the checked components to both tabs. */
	void onComponentsChanged();

private:
	struct Ui;

	/*! Builds the widgets. */
	void setupUi();
	/*! Writes the bitmap or vector file; returns false after reporting a failure. */
	bool exportToFile(const QString & fileName, bool bitmap);
	/*! The message reporter in use. */
	MessageBoxReporter * reporter();

	std::unique_ptr<Ui>						m_ui;
	QPointer<QwtPlot>						m_plot;
	/*! The message boxes used when no other reporter is set. */
	std::unique_ptr<MessageBoxReporter>		m_defaultReporter;
	MessageBoxReporter *					m_reporter = nullptr;
};

} // namespace SCI

#endif // Sci_ExportDialogH
