#include "Sci_Export2BitmapWidget.h"

#include <algorithm>
#include <cmath>

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QRadioButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <qwt_plot.h>

#include <ZEB_Exception.h>

#include "Sci_PositiveNumberLineEdit.h"

namespace SCI {

/*! Millimetres per inch. */
static const double MM_PER_INCH = 25.4;
/*! Box the scaled preview is fitted into. */
static const QSize SCALED_PREVIEW_SIZE(360, 270);
/*! Pixel counts are limited to this value, so that absurd entries stay integers; an image
	that large cannot be created and is reported when exporting.
*/
static const double MAX_PIXELS = 1e6;

/*! A pixel count as whole number between 1 and MAX_PIXELS. */
static int pixelCount(double pixels) {
	return static_cast<int>(std::lround(std::clamp(pixels, 1.0, MAX_PIXELS)));
}

/*! The widgets of the tab. */
struct Export2BitmapWidget::Ui {
	QSpinBox *					spinBox_resolution = nullptr;
	QRadioButton *				radioButtonPixels = nullptr;
	QRadioButton *				radioButtonMM = nullptr;
	PositiveNumberLineEdit *	lineEditPixelX = nullptr;
	PositiveNumberLineEdit *	lineEditPixelY = nullptr;
	PositiveNumberLineEdit *	lineEditMMX = nullptr;
	PositiveNumberLineEdit *	lineEditMMY = nullptr;
	QCheckBox *					checkBoxAspectRatio = nullptr;
	QCheckBox *					checkBoxApplyDPI = nullptr;
	QTabWidget *				tabWidgetPreview = nullptr;
	QLabel *					labelPreviewUnscaled = nullptr;
	QLabel *					labelPreviewScaled = nullptr;
};


Export2BitmapWidget::Export2BitmapWidget(QwtPlot * plot, QWidget * parent) :
	AbstractExportWidget(plot, parent),
	m_ui(new Ui)
{
	setupUi();

	// the chart's size on screen, before the slots are connected
	m_ui->spinBox_resolution->setValue(ChartExporter::screenResolution());
	m_ui->lineEditPixelX->setValue(screenSize().width(), 0);
	m_ui->lineEditPixelY->setValue(screenSize().height(), 0);
	m_ui->radioButtonPixels->setChecked(true);
	m_ui->lineEditMMX->setEnabled(false);
	m_ui->lineEditMMY->setEnabled(false);

	QMetaObject::connectSlotsByName(this);
	connect(m_ui->checkBoxApplyDPI, &QCheckBox::toggled, this, &Export2BitmapWidget::updatePreview);
	updateDimensions();
}


Export2BitmapWidget::~Export2BitmapWidget() = default;


void Export2BitmapWidget::setComponents(const ExportComponents & components) {
	m_exporter.setComponents(components);
	updatePreview();
}


bool Export2BitmapWidget::canExport() const {
	if (m_ui->radioButtonPixels->isChecked())
		return m_ui->lineEditPixelX->isValid() && m_ui->lineEditPixelY->isValid();
	return m_ui->lineEditMMX->isValid() && m_ui->lineEditMMY->isValid();
}


QSize Export2BitmapWidget::pixelSize() const {
	return QSize(pixelCount(m_ui->lineEditPixelX->value()), pixelCount(m_ui->lineEditPixelY->value()));
}


int Export2BitmapWidget::resolution() const {
	return m_ui->spinBox_resolution->value();
}


void Export2BitmapWidget::setSize(const QSize & pixels, int dpi) {
	const QSignalBlocker blocker(m_ui->spinBox_resolution);
	m_ui->spinBox_resolution->setValue(dpi);
	m_ui->lineEditPixelX->setValue(pixelCount(pixels.width()), 0);
	m_ui->lineEditPixelY->setValue(pixelCount(pixels.height()), 0);
	m_ui->radioButtonPixels->setChecked(true);
	updateDimensions();
}


QImage Export2BitmapWidget::image() const {
	FUNCID(Export2BitmapWidget::image);
	if (!canExport())
		throw ZEB::Exception("Invalid bitmap size.", FUNC_ID);
	if (!m_image.isNull())
		return m_image;
	return m_exporter.renderImage(m_plot, pixelSize(), resolution(), m_ui->checkBoxApplyDPI->isChecked());
}


void Export2BitmapWidget::updateDimensions() {
	const double dpi = resolution();
	if (m_ui->radioButtonPixels->isChecked()) {
		if (m_ui->lineEditPixelX->isValid() && m_ui->lineEditPixelY->isValid()) {
			m_ui->lineEditMMX->setValue(m_ui->lineEditPixelX->value()*MM_PER_INCH/dpi, 1);
			m_ui->lineEditMMY->setValue(m_ui->lineEditPixelY->value()*MM_PER_INCH/dpi, 1);
		}
	}
	else if (m_ui->lineEditMMX->isValid() && m_ui->lineEditMMY->isValid()) {
		m_ui->lineEditPixelX->setValue(pixelCount(m_ui->lineEditMMX->value()*dpi/MM_PER_INCH), 0);
		m_ui->lineEditPixelY->setValue(pixelCount(m_ui->lineEditMMY->value()*dpi/MM_PER_INCH), 0);
	}
	updatePreview();
	emit exportButtonsEnabled(canExport());
}


void Export2BitmapWidget::on_spinBox_resolution_valueChanged(int) {
	updateDimensions();
}


void Export2BitmapWidget::on_lineEditPixelX_editingFinished() {
	if (m_ui->checkBoxAspectRatio->isChecked() && m_ui->lineEditPixelX->isValid())
		m_ui->lineEditPixelY->setValue(pixelCount(proportionalHeight(m_ui->lineEditPixelX->value())), 0);
	updateDimensions();
}


void Export2BitmapWidget::on_lineEditPixelY_editingFinished() {
	if (m_ui->checkBoxAspectRatio->isChecked() && m_ui->lineEditPixelY->isValid())
		m_ui->lineEditPixelX->setValue(pixelCount(proportionalWidth(m_ui->lineEditPixelY->value())), 0);
	updateDimensions();
}


void Export2BitmapWidget::on_lineEditMMX_editingFinished() {
	if (m_ui->checkBoxAspectRatio->isChecked() && m_ui->lineEditMMX->isValid())
		m_ui->lineEditMMY->setValue(proportionalHeight(m_ui->lineEditMMX->value()), 1);
	updateDimensions();
}


void Export2BitmapWidget::on_lineEditMMY_editingFinished() {
	if (m_ui->checkBoxAspectRatio->isChecked() && m_ui->lineEditMMY->isValid())
		m_ui->lineEditMMX->setValue(proportionalWidth(m_ui->lineEditMMY->value()), 1);
	updateDimensions();
}


void Export2BitmapWidget::on_radioButtonPixels_toggled(bool checked) {
	m_ui->lineEditPixelX->setEnabled(checked);
	m_ui->lineEditPixelY->setEnabled(checked);
	m_ui->lineEditMMX->setEnabled(!checked);
	m_ui->lineEditMMY->setEnabled(!checked);
	updateDimensions();
}


void Export2BitmapWidget::setupUi() {
	Ui & ui = *m_ui;
	QGridLayout * grid = new QGridLayout;

	grid->addWidget(new QLabel(tr("Resolution [dpi]:"), this), 0, 0);
	ui.spinBox_resolution = new QSpinBox(this);
	ui.spinBox_resolution->setObjectName("spinBox_resolution");
	ui.spinBox_resolution->setRange(10, 2400);
	grid->addWidget(ui.spinBox_resolution, 0, 1);

	ui.radioButtonPixels = new QRadioButton(tr("Size [pixel]:"), this);
	ui.radioButtonPixels->setObjectName("radioButtonPixels");
	grid->addWidget(ui.radioButtonPixels, 1, 0);
	addSizeEdits(grid, 1, "lineEditPixelX", "lineEditPixelY", ui.lineEditPixelX, ui.lineEditPixelY);
	ui.lineEditPixelX->setIntegerOnly(true);
	ui.lineEditPixelY->setIntegerOnly(true);

	ui.radioButtonMM = new QRadioButton(tr("Size [mm]:"), this);
	ui.radioButtonMM->setObjectName("radioButtonMM");
	grid->addWidget(ui.radioButtonMM, 2, 0);
	addSizeEdits(grid, 2, "lineEditMMX", "lineEditMMY", ui.lineEditMMX, ui.lineEditMMY);

	ui.checkBoxAspectRatio = addCheckBox(grid, 3, tr("Keep aspect ratio"), "checkBoxAspectRatio", true);
	ui.checkBoxApplyDPI = addCheckBox(grid, 4, tr("Scale plot items/fonts with resolution"), "checkBoxApplyDPI", true);

	ui.tabWidgetPreview = new QTabWidget(this);
	ui.tabWidgetPreview->setObjectName("tabWidgetPreview");
	QScrollArea * scrollArea = new QScrollArea(ui.tabWidgetPreview);
	ui.labelPreviewUnscaled = new QLabel(scrollArea);
	ui.labelPreviewUnscaled->setObjectName("labelPreviewUnscaled");
	ui.labelPreviewUnscaled->setAlignment(Qt::AlignCenter);
	scrollArea->setWidget(ui.labelPreviewUnscaled);
	scrollArea->setWidgetResizable(true);
	ui.tabWidgetPreview->addTab(scrollArea, tr("Preview in original size"));
	ui.labelPreviewScaled = new QLabel(ui.tabWidgetPreview);
	ui.labelPreviewScaled->setObjectName("labelPreviewScaled");
	ui.labelPreviewScaled->setAlignment(Qt::AlignCenter);
	ui.labelPreviewScaled->setMinimumSize(SCALED_PREVIEW_SIZE);
	ui.tabWidgetPreview->addTab(ui.labelPreviewScaled, tr("Scaled preview image"));
	ui.tabWidgetPreview->setCurrentIndex(1);

	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->addLayout(grid);
	layout->addWidget(ui.tabWidgetPreview, 1);
}


void Export2BitmapWidget::updatePreview() {
	m_image = QImage();
	m_ui->labelPreviewUnscaled->clear();
	m_ui->labelPreviewScaled->clear();
	if (!canExport() || m_plot == nullptr)
		return;
	const QSize size = pixelSize();
	if (size.width() > MAX_PREVIEW_SIDE || size.height() > MAX_PREVIEW_SIDE) {
		m_ui->labelPreviewUnscaled->setText(tr("Bitmap too large to preview."));
		m_ui->labelPreviewScaled->setText(tr("Bitmap too large to preview."));
		return;
	}
	try {
		m_image = m_exporter.renderImage(m_plot, size, resolution(), m_ui->checkBoxApplyDPI->isChecked());
	}
	catch (ZEB::Exception & ex) {
		// the preview stays empty; exporting will report the error again
		ex.reportAllAsErrors();
		return;
	}
	m_ui->labelPreviewUnscaled->setPixmap(QPixmap::fromImage(m_image));
	m_ui->labelPreviewScaled->setPixmap(QPixmap::fromImage(
		m_image.scaled(SCALED_PREVIEW_SIZE, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
}

} // namespace SCI
