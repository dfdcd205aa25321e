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
	AbstractExportWidget(plot, parent),
	m_ui(new Ui)
{
	setupUi();

	const QSizeF sizeMM = ChartExporter::screenSizeMM(screenSize());
	m_ui->lineEditMMX->setValue(sizeMM.width(), 1);
	m_ui->lineEditMMY->setValue(sizeMM.height(), 1);
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


void Export2VectorWidget::setSizeMM(const QSizeF & sizeMM) {
	m_ui->lineEditMMX->setValue(sizeMM.width(), 1);
	m_ui->lineEditMMY->setValue(sizeMM.height(), 1);
	settingsChanged();
}


void Export2VectorWidget::setDimensionHistory(const QStringList & entries) {
	m_history = ExportDimensionHistory(entries);
	updateDimensionHistory();
}


void Export2VectorWidget::on_lineEditMMX_editingFinishedSuccessfully() {
	if (m_ui->checkBoxAspectRatio->isChecked())
		m_ui->lineEditMMY->setValue(proportionalHeight(m_ui->lineEditMMX->value()), 1);
	storeDimensions();
	settingsChanged();
}


void Export2VectorWidget::on_lineEditMMY_editingFinishedSuccessfully() {
	if (m_ui->checkBoxAspectRatio->isChecked())
		m_ui->lineEditMMX->setValue(proportionalWidth(m_ui->lineEditMMY->value()), 1);
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
	addSizeEdits(grid, 0, "lineEditMMX", "lineEditMMY", ui.lineEditMMX, ui.lineEditMMY);

	ui.checkBoxAspectRatio = addCheckBox(grid, 1, tr("Keep aspect ratio"), "checkBoxAspectRatio", true);
	ui.checkBoxNoTransparency = addCheckBox(grid, 2, tr("Paint chart background (no transparency)"),
											"checkBoxNoTransparency", false);
	ui.checkBoxDataReduction = addCheckBox(grid, 3, tr("Use data reduction during export"), "checkBoxDataReduction", true);

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
	combo->addItems(m_history.entries());
	combo->setCurrentIndex(0);
}


void Export2VectorWidget::storeDimensions() {
	if (!canExport())
		return;
	m_history.add(sizeMM());
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
