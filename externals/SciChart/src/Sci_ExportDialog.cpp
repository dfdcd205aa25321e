#include "Sci_ExportDialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <qwt_plot.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

#include "Sci_ChartExporter.h"
#include "Sci_Export2BitmapWidget.h"
#include "Sci_Export2VectorWidget.h"
#include "Sci_ExportFileName.h"
#include "Sci_MessageBoxReporter.h"

namespace SCI {

/*! The widgets of the dialog. */
struct ExportDialog::Ui {
	QLineEdit *				lineEditExportFilename = nullptr;
	QToolButton *			toolButtonBrowseFilename = nullptr;
	QTabWidget *			tabWidget = nullptr;
	Export2BitmapWidget *	bitmapWidget = nullptr;
	Export2VectorWidget *	vectorWidget = nullptr;
	QCheckBox *				checkBox_title = nullptr;
	QCheckBox *				checkBox_legend = nullptr;
	QCheckBox *				checkBox_canvasFrame = nullptr;
	QCheckBox *				checkBox_background = nullptr;
	QCheckBox *				checkBox_canvasBackground = nullptr;
	QPushButton *			pushButtonSave = nullptr;
	QPushButton *			pushButtonCopyToClipboard = nullptr;
	QPushButton *			pushButtonClose = nullptr;
};


ExportDialog::ExportDialog(QwtPlot * plot, QWidget * parent) :
	QDialog(parent),
	m_ui(new Ui),
	m_plot(plot),
	m_defaultReporter(new MessageBoxReporter)
{
	setWindowTitle(tr("Export chart"));
	setupUi();
	QMetaObject::connectSlotsByName(this);
	for (QCheckBox * c : { m_ui->checkBox_title, m_ui->checkBox_legend, m_ui->checkBox_canvasFrame,
						   m_ui->checkBox_background, m_ui->checkBox_canvasBackground })
	{
		connect(c, &QCheckBox::toggled, this, &ExportDialog::onComponentsChanged);
	}
	connect(m_ui->bitmapWidget, &Export2BitmapWidget::exportButtonsEnabled, this, &ExportDialog::onExportButtonsEnabled);
	connect(m_ui->vectorWidget, &Export2VectorWidget::exportButtonsEnabled, this, &ExportDialog::onExportButtonsEnabled);
	connect(m_ui->pushButtonClose, &QPushButton::clicked, this, &QDialog::reject);
	on_tabWidget_currentChanged(m_ui->tabWidget->currentIndex());
}


ExportDialog::~ExportDialog() = default;


void ExportDialog::setMessageReporter(MessageBoxReporter * reporter) {
	m_reporter = reporter;
}


QString ExportDialog::fileName() const {
	return m_ui->lineEditExportFilename->text();
}


void ExportDialog::setFileName(const QString & fileName) {
	m_ui->lineEditExportFilename->setText(fileName);
	const QString ext = ExportFileName::extension(fileName);
	if (ExportFileName::isBitmapExtension(ext))
		m_ui->tabWidget->setCurrentWidget(m_ui->bitmapWidget);
	else if (ExportFileName::isVectorExtension(ext))
		m_ui->tabWidget->setCurrentWidget(m_ui->vectorWidget);
}


void ExportDialog::setSettings(const ExportSettings & settings) {
	m_ui->lineEditExportFilename->setText(settings.m_fileName);
	m_ui->tabWidget->setCurrentWidget(settings.m_tab == ExportSettings::VectorTab ?
		static_cast<QWidget *>(m_ui->vectorWidget) : static_cast<QWidget *>(m_ui->bitmapWidget));
	if (!settings.m_bitmapSize.isEmpty())
		m_ui->bitmapWidget->setSize(settings.m_bitmapSize, settings.m_resolution > 0 ?
										settings.m_resolution : ChartExporter::screenResolution());
	if (!settings.m_vectorSizeMM.isEmpty())
		m_ui->vectorWidget->setSizeMM(settings.m_vectorSizeMM);
	m_ui->vectorWidget->setDimensionHistory(settings.m_dimensionHistory);
}


ExportSettings ExportDialog::settings() const {
	ExportSettings settings;
	settings.m_fileName = m_ui->lineEditExportFilename->text();
	settings.m_tab = m_ui->tabWidget->currentWidget() == m_ui->vectorWidget ? ExportSettings::VectorTab
																			 : ExportSettings::BitmapTab;
	if (m_ui->bitmapWidget->canExport())
		settings.m_bitmapSize = m_ui->bitmapWidget->pixelSize();
	settings.m_resolution = m_ui->bitmapWidget->resolution();
	if (m_ui->vectorWidget->canExport())
		settings.m_vectorSizeMM = m_ui->vectorWidget->sizeMM();
	settings.m_dimensionHistory = m_ui->vectorWidget->dimensionHistory();
	return settings;
}


bool ExportDialog::exportChart(QwtPlot * chart, const QString & fileName, const QSize & sizePx,
							   std::optional<int> resolution)
{
	FUNCID(ExportDialog::exportChart);
	if (resolution) {
		if (!ExportFileName::isBitmapExtension(ExportFileName::extension(fileName))) {
			ZEB::reportError(ZEB::MessageFormat("Resolution can be only set to Bitmap graphics '%1' --generate-chart")
							 .arg(fileName.toStdString()).str(), FUNC_ID);
			return false;
		}
		if (*resolution <= 0) {
			ZEB::reportError(ZEB::MessageFormat("Resolution with value '%1' needs to be greater then 0 --generate-chart")
							 .arg(*resolution).str(), FUNC_ID);
			return false;
		}
	}
	try {
		ChartExporter().exportFile(chart, fileName, sizePx, resolution.value_or(DEFAULT_RESOLUTION));
	}
	catch (ZEB::Exception & ex) {
		ZEB::Exception(ex, ZEB::MessageFormat("Error exporting chart to file '%1'.").arg(fileName.toStdString()),
					   FUNC_ID).reportAllAsErrors();
		return false;
	}
	return true;
}


void ExportDialog::onExportButtonsEnabled(bool enabled) {
	// a tab that is not shown does not decide
	if (sender() != nullptr && sender() != m_ui->tabWidget->currentWidget())
		return;
	m_ui->pushButtonSave->setEnabled(enabled);
	m_ui->pushButtonCopyToClipboard->setEnabled(enabled);
}


void ExportDialog::on_pushButtonSave_clicked() {
	const QString name = m_ui->lineEditExportFilename->text().trimmed();
	if (name.isEmpty()) {
		reporter()->critical(this, tr("Export error"), tr("Please enter/select a filename!"));
		return;
	}
	const bool bitmap = m_ui->tabWidget->currentWidget() == m_ui->bitmapWidget;
	const QString corrected = ExportFileName::corrected(name, bitmap ? ExportFileName::Bitmap : ExportFileName::Vector);
	if (corrected != m_ui->lineEditExportFilename->text())
		m_ui->lineEditExportFilename->setText(corrected);
	if (exportToFile(corrected, bitmap))
		accept();
}


void ExportDialog::on_pushButtonCopyToClipboard_clicked() {
	try {
		std::unique_ptr<QMimeData> data(new QMimeData);
		if (m_ui->tabWidget->currentWidget() == m_ui->bitmapWidget) {
			data->setImageData(m_ui->bitmapWidget->image());
		}
		else {
			const QSizeF size = m_ui->vectorWidget->sizeMM();
			const ChartExporter & exporter = m_ui->vectorWidget->exporter();
			data->setData("image/svg+xml", exporter.renderSvg(m_plot, size));
			// programs that take no SVG get a bitmap of the size the chart has on screen
			const int dpi = ChartExporter::screenResolution();
			data->setImageData(exporter.renderImage(m_plot, ChartExporter::vectorPixelSize(size, dpi), dpi, false));
		}
		QApplication::clipboard()->setMimeData(data.release());
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		reporter()->critical(this, tr("Export error"), QString::fromStdString(ex.what()));
		return;
	}
	accept();
}


void ExportDialog::on_toolButtonBrowseFilename_clicked() {
	const bool bitmap = m_ui->tabWidget->currentWidget() == m_ui->bitmapWidget;
	const QString filter = bitmap ? tr("Bitmap graphics (*.png *.bmp *.jpg)") : tr("Vector graphics (*.pdf *.svg *.emf)");
	const QString name = QFileDialog::getSaveFileName(this, tr("Select export file"),
													  m_ui->lineEditExportFilename->text(), filter);
	if (!name.isEmpty())
		setFileName(name);
}


void ExportDialog::on_tabWidget_currentChanged(int) {
	const bool enabled = m_ui->tabWidget->currentWidget() == m_ui->bitmapWidget ?
				m_ui->bitmapWidget->canExport() : m_ui->vectorWidget->canExport();
	m_ui->pushButtonSave->setEnabled(enabled);
	m_ui->pushButtonCopyToClipboard->setEnabled(enabled);
}


void ExportDialog::onComponentsChanged() {
	ExportComponents components;
	components.m_title = m_ui->checkBox_title->isChecked();
	components.m_legend = m_ui->checkBox_legend->isChecked();
	components.m_canvasFrame = m_ui->checkBox_canvasFrame->isChecked();
	components.m_background = m_ui->checkBox_background->isChecked();
	components.m_canvasBackground = m_ui->checkBox_canvasBackground->isChecked();
	m_ui->bitmapWidget->setComponents(components);
	m_ui->vectorWidget->setComponents(components);
}


void ExportDialog::setupUi() {
	Ui & ui = *m_ui;

	QHBoxLayout * fileLayout = new QHBoxLayout;
	fileLayout->addWidget(new QLabel(tr("Export file name:"), this));
	ui.lineEditExportFilename = new QLineEdit(this);
	ui.lineEditExportFilename->setObjectName("lineEditExportFilename");
	fileLayout->addWidget(ui.lineEditExportFilename, 1);
	ui.toolButtonBrowseFilename = new QToolButton(this);
	ui.toolButtonBrowseFilename->setObjectName("toolButtonBrowseFilename");
	ui.toolButtonBrowseFilename->setText("...");
	fileLayout->addWidget(ui.toolButtonBrowseFilename);

	QGroupBox * components = new QGroupBox(tr("Components of the exported chart"), this);
	components->setObjectName("groupBoxComponents");
	QHBoxLayout * componentLayout = new QHBoxLayout(components);
	auto addComponent = [&](QCheckBox *& checkBox, const char * objectName, const QString & label) {
		checkBox = new QCheckBox(label, components);
		checkBox->setObjectName(objectName);
		checkBox->setChecked(true);
		componentLayout->addWidget(checkBox);
	};
	addComponent(ui.checkBox_title, "checkBox_title", tr("Title"));
	addComponent(ui.checkBox_legend, "checkBox_legend", tr("Legend"));
	addComponent(ui.checkBox_canvasFrame, "checkBox_canvasFrame", tr("Canvas frame"));
	addComponent(ui.checkBox_background, "checkBox_background", tr("Background"));
	addComponent(ui.checkBox_canvasBackground, "checkBox_canvasBackground", tr("Canvas background"));

	ui.tabWidget = new QTabWidget(this);
	ui.tabWidget->setObjectName("tabWidget");
	ui.bitmapWidget = new Export2BitmapWidget(m_plot, ui.tabWidget);
	ui.bitmapWidget->setObjectName("export2BitmapWidget");
	ui.tabWidget->addTab(ui.bitmapWidget, tr("Bitmap graphics"));
	ui.vectorWidget = new Export2VectorWidget(m_plot, ui.tabWidget);
	ui.vectorWidget->setObjectName("export2VectorWidget");
	ui.tabWidget->addTab(ui.vectorWidget, tr("Vector graphics"));

	QHBoxLayout * buttonLayout = new QHBoxLayout;
	ui.pushButtonSave = new QPushButton(tr("Export to file"), this);
	ui.pushButtonSave->setObjectName("pushButtonSave");
	ui.pushButtonSave->setDefault(true);
	buttonLayout->addWidget(ui.pushButtonSave);
	ui.pushButtonCopyToClipboard = new QPushButton(tr("Copy to clipboard"), this);
	ui.pushButtonCopyToClipboard->setObjectName("pushButtonCopyToClipboard");
	buttonLayout->addWidget(ui.pushButtonCopyToClipboard);
	buttonLayout->addStretch(1);
	ui.pushButtonClose = new QPushButton(tr("Close"), this);
	ui.pushButtonClose->setObjectName("pushButtonClose");
	buttonLayout->addWidget(ui.pushButtonClose);

	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->addLayout(fileLayout);
	layout->addWidget(components);
	layout->addWidget(ui.tabWidget, 1);
	layout->addLayout(buttonLayout);
}


bool ExportDialog::exportToFile(const QString & fileName, bool bitmap) {
	try {
		if (bitmap) {
			ChartExporter::saveImage(m_ui->bitmapWidget->image(), fileName);
		}
		else {
			const QSizeF size = m_ui->vectorWidget->sizeMM();
			switch (ChartExporter::checkVectorSize(size)) {
				case ChartExporter::SizeTooLarge :
					reporter()->critical(this, tr("Export chart"), tr("Dimensions too large!"));
					return false;
				case ChartExporter::SizeInvalid :
					reporter()->critical(this, tr("Export error"), tr("Invalid graphics dimensions"));
					return false;
				case ChartExporter::SizeValid :
					break;
			}
			m_ui->vectorWidget->exporter().exportVector(m_plot, fileName, size);
			m_ui->vectorWidget->storeDimensions();
		}
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		reporter()->critical(this, tr("Export error"), QString::fromStdString(ex.what()));
		return false;
	}
	return true;
}


MessageBoxReporter * ExportDialog::reporter() {
	return m_reporter != nullptr ? m_reporter : m_defaultReporter.get();
}

} // namespace SCI
