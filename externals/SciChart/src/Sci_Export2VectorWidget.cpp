#include "Sci_Export2VectorWidget.h"

#include <algorithm>

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <qwt_plot.h>

#include <ZEB_Exception.h>

#include "Sci_ChartRenderWidget.h"
#include "Sci_ExportDimensionHistory.h"
#include "Sci_PositiveNumberLineEdit.h"

namespace SCI {

/*! The widgets of the tab. */
struct Export2VectorWidget::Ui {
	PositiveNumberLineEdit *	lineEditMMX = nullptr;
	PositiveNumberLineEdit *	lineEditMMY = nullptr;
	QCheckBox *					checkBoxAspectRatio = nullptr;
	QCheckBox *					checkBoxNoTransparency = nullptr;
	QCheckBox *					checkBoxDataReduction = nullptr;
	QComboBox *					comboBoxLastPlotDimensions = nullptr;
	ChartRenderWidget *			chartRenderWidget = nullptr;
};


Export2VectorWidget::Export2VectorWidget(QwtPlot * plot, QWidget * parent) :
	QWidget(parent),
	m_ui(new Ui),
	m_plot(plot)
{
	setupUi();
	if (plot != nullptr && plot->width() > 0 && plot->height() > 0)
		m_aspectRatio = static_cast<double>(plot->width())/plot->height();

	const double mmPerPixel = 1.0/(ChartExporter::INCH_PER_MM*ChartExporter::screenResolution());
	const QSize screenSize = plot != nullptr ? plot->size() : QSize(800, 600);
	m_ui->lineEditMMX->setValue(std::max(1, screenSize.width())*mmPerPixel, 1);
	m_ui->lineEditMMY->setValue(std::max(1, screenSize.height())*mmPerPixel, 1);
	m_exporter.setDataReduction(m_ui->checkBoxDataReduction->isChecked());
	updateDimensionHistory();

	QMetaObject::connectSlotsByName(this);
	connect(m_ui->checkBoxNoTransparency, &QCheckBox::toggled, this, [this](bool checked) {
		m_exporter.setPaintBackground(checked);
		settingsChanged();
	});
	// valid entries arrive in the ..Successfully slots, invalid ones disable the export buttons here
	for (PositiveNumberLineEdit * e : { m_ui->lineEditMMX, m_ui->lineEditMMY }) {
		connect(e, &QLineEdit::editingFinished, this, [this, e]() {
			if (!e->isValid())
				settingsChanged();
		});
	}
	settingsChanged();
}


Export2VectorWidget::~Export2VectorWidget() = default;


void Export2VectorWidget::setComponents(const ExportComponents & components) {
	m_exporter.setComponents(components);
	settingsChanged();
}


bool Export2VectorWidget::canExport() const {
	return m_ui->lineEditMMX->isValid() && m_ui->lineEditMMY->isValid();
}


QSizeF Export2VectorWidget::sizeMM() const {
	return QSizeF(m_ui->lineEditMMX->value(), m_ui->lineEditMMY->value());
}


void Export2VectorWidget::on_lineEditMMX_editingFinishedSuccessfully() {
	if (m_ui->checkBoxAspectRatio->isChecked())
		m_ui->lineEditMMY->setValue(m_ui->lineEditMMX->value()/m_aspectRatio, 1);
	storeDimensions();
	settingsChanged();
}


void Export2VectorWidget::on_lineEditMMY_editingFinishedSuccessfully() {
	if (m_ui->checkBoxAspectRatio->isChecked())
		m_ui->lineEditMMX->setValue(m_ui->lineEditMMY->value()*m_aspectRatio, 1);
	storeDimensions();
	settingsChanged();
}


void Export2VectorWidget::on_checkBoxDataReduction_toggled(bool checked) {
	m_exporter.setDataReduction(checked);
	settingsChanged();
}


void Export2VectorWidget::on_comboBoxLastPlotDimensions_currentIndexChanged(int index) {
	// entry 0 is the empty entry that is shown while nothing is chosen
	if (index < 1)
		return;
	Q_ASSERT(index-1 < m_ui->comboBoxLastPlotDimensions->count());
	QSizeF size;
	if (!ExportDimensionHistory::parseEntry(m_ui->comboBoxLastPlotDimensions->itemText(index), size))
		return;
	m_ui->lineEditMMX->setValue(size.width(), 2);
	m_ui->lineEditMMY->setValue(size.height(), 2);
	storeDimensions();
	settingsChanged();
}


void Export2VectorWidget::setupUi() {
	Ui & ui = *m_ui;
	QGridLayout * grid = new QGridLayout;

	grid->addWidget(new QLabel(tr("Size (width/height) [mm]:"), this), 0, 0);
	ui.lineEditMMX = new PositiveNumberLineEdit(this);
	ui.lineEditMMX->setObjectName("lineEditMMX");
	grid->addWidget(ui.lineEditMMX, 0, 1);
	grid->addWidget(new QLabel("x", this), 0, 2);
	ui.lineEditMMY = new PositiveNumberLineEdit(this);
	ui.lineEditMMY->setObjectName("lineEditMMY");
	grid->addWidget(ui.lineEditMMY, 0, 3);

	ui.checkBoxAspectRatio = new QCheckBox(tr("Keep aspect ratio"), this);
	ui.checkBoxAspectRatio->setObjectName("checkBoxAspectRatio");
	ui.checkBoxAspectRatio->setChecked(true);
	grid->addWidget(ui.checkBoxAspectRatio, 1, 0, 1, 4);
	ui.checkBoxNoTransparency = new QCheckBox(tr("Paint chart background (no transparency)"), this);
	ui.checkBoxNoTransparency->setObjectName("checkBoxNoTransparency");
	grid->addWidget(ui.checkBoxNoTransparency, 2, 0, 1, 4);
	ui.checkBoxDataReduction = new QCheckBox(tr("Use data reduction during export"), this);
	ui.checkBoxDataReduction->setObjectName("checkBoxDataReduction");
	ui.checkBoxDataReduction->setChecked(true);
	grid->addWidget(ui.checkBoxDataReduction, 3, 0, 1, 4);

	grid->addWidget(new QLabel(tr("Last used plot dimensions:"), this), 4, 0);
	ui.comboBoxLastPlotDimensions = new QComboBox(this);
	ui.comboBoxLastPlotDimensions->setObjectName("comboBoxLastPlotDimensions");
	grid->addWidget(ui.comboBoxLastPlotDimensions, 4, 1, 1, 3);

	ui.chartRenderWidget = new ChartRenderWidget(this);
	ui.chartRenderWidget->setObjectName("chartRenderWidget");

	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->addLayout(grid);
	layout->addWidget(ui.chartRenderWidget, 1);
}


void Export2VectorWidget::updateDimensionHistory() {
	QComboBox * combo = m_ui->comboBoxLastPlotDimensions;
	const QSignalBlocker blocker(combo);
	combo->clear();
	combo->addItem(QString());
	combo->addItems(ExportDimensionHistory::entries());
	combo->setCurrentIndex(0);
}


void Export2VectorWidget::storeDimensions() {
	if (!canExport())
		return;
	ExportDimensionHistory::add(sizeMM());
	updateDimensionHistory();
}


void Export2VectorWidget::settingsChanged() {
	updatePreview();
	emit exportButtonsEnabled(canExport());
}


void Export2VectorWidget::updatePreview() {
	if (!canExport() || m_plot == nullptr || ChartExporter::checkVectorSize(sizeMM()) != ChartExporter::SizeValid) {
		m_ui->chartRenderWidget->setImage(QImage());
		return;
	}
	// The preview shows the chart laid out for the full size, drawn at a lower resolution: the
	// renderer shrinks fonts and items by preview dpi / screen dpi, just as the image shrinks.
	const int screenDpi = ChartExporter::screenResolution();
	const QSize fullSize = ChartExporter::vectorPixelSize(sizeMM(), screenDpi);
	const double scale = std::min(1.0, static_cast<double>(MAX_PREVIEW_SIDE)/std::max(fullSize.width(), fullSize.height()));
	const int previewDpi = std::max(1, static_cast<int>(screenDpi*scale));
	const QSize previewSize = ChartExporter::vectorPixelSize(sizeMM(), previewDpi);
	try {
		m_ui->chartRenderWidget->setImage(m_exporter.renderImage(m_plot, previewSize, previewDpi, true));
	}
	catch (ZEB::Exception & ex) {
		// the preview stays empty; exporting will report the error again
		m_ui->chartRenderWidget->setImage(QImage());
		ex.reportAllAsErrors();
	}
}

} // namespace SCI
