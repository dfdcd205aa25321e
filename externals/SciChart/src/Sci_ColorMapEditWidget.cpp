#include "Sci_ColorMapEditWidget.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <ZEB_Exception.h>

#include "Sci_ColorMapFile.h"
#include "Sci_MessageBoxReporter.h"

namespace SCI {

/*! Size of the preview bar. */
static const QSize PREVIEW_SIZE(256, 20);
/*! Edge length of the checkerboard squares behind an alpha map. */
static const int CHECKER_SIZE = 5;

/*! The colour of a linear map at t (0..1), interpolated linearly in RGB between the stops around t. */
static QColor linearMapColor(const QVector<ColorMap::ColorStop> & stops, double t) {
	if (stops.isEmpty())
		return Qt::black;
	if (t <= stops.front().m_pos)
		return stops.front().m_color;
	for (int i = 1; i < stops.size(); ++i) {
		const ColorMap::ColorStop & a = stops[i-1];
		const ColorMap::ColorStop & b = stops[i];
		if (t <= b.m_pos) {
			const double w = b.m_pos > a.m_pos ? (t - a.m_pos)/(b.m_pos - a.m_pos) : 1.0;
			return QColor::fromRgbF(a.m_color.redF() + w*(b.m_color.redF() - a.m_color.redF()),
									a.m_color.greenF() + w*(b.m_color.greenF() - a.m_color.greenF()),
									a.m_color.blueF() + w*(b.m_color.blueF() - a.m_color.blueF()));
		}
	}
	return stops.back().m_color;
}


/*! An icon showing a colour, for the colour buttons. */
static QIcon colorIcon(const QColor & color) {
	QPixmap pixmap(24, 16);
	pixmap.fill(color);
	return QIcon(pixmap);
}


/*! Reads a stop position (decimal point, or the user's locale); false for anything else. */
static bool parsePosition(const QString & text, double & pos) {
	bool ok = false;
	pos = QLocale::c().toDouble(text.trimmed(), &ok);
	if (!ok)
		pos = QLocale().toDouble(text.trimmed(), &ok);
	return ok;
}


/*! The widgets of the editor. */
struct ColorMapEditWidget::Ui {
	QRadioButton *	radioButtonLinearMap = nullptr;
	QRadioButton *	radioButtonAlphaMap = nullptr;
	QGroupBox *		groupBoxLinearMap = nullptr;
	QTableWidget *	tableWidgetColorStops = nullptr;
	QPushButton *	pushButtonAddStop = nullptr;
	QPushButton *	pushButtonRemoveStop = nullptr;
	QToolButton *	toolButtonFirstColor = nullptr;
	QToolButton *	toolButtonLastColor = nullptr;
	QSpinBox *		spinBoxSteps = nullptr;
	QPushButton *	pushButtonGenerate = nullptr;
	QGroupBox *		groupBoxAlphaMap = nullptr;
	QToolButton *	toolButtonAlphaColor = nullptr;
	QLabel *		labelColorMapPreview = nullptr;
	QPushButton *	pushButtonSaveColorMap = nullptr;
	QPushButton *	pushButtonLoadColorMap = nullptr;
};


ColorMapEditWidget::ColorMapEditWidget(QWidget * parent) :
	QWidget(parent),
	m_ui(new Ui),
	m_defaultReporter(new MessageBoxReporter)
{
	setupUi();
	setColorMap(ColorMap());
	QMetaObject::connectSlotsByName(this);
	// only inner stops can be removed
	connect(m_ui->tableWidgetColorStops, &QTableWidget::currentCellChanged, this, [this](int row) {
		m_ui->pushButtonRemoveStop->setEnabled(row > 0 && row < m_colorMap.m_linearColorStops.size() - 1);
	});
}


ColorMapEditWidget::~ColorMapEditWidget() = default;


void ColorMapEditWidget::setColorMap(const ColorMap & colorMap) {
	m_colorMap = colorMap;
	if (!m_colorMap.m_linearColorStops.isEmpty()) {
		m_firstColor = m_colorMap.m_linearColorStops.front().m_color;
		m_lastColor = m_colorMap.m_linearColorStops.back().m_color;
	}
	updateUi();
}


void ColorMapEditWidget::setMessageReporter(MessageBoxReporter * reporter) {
	m_reporter = reporter;
}


bool ColorMapEditWidget::saveColorMap(const QString & path) {
	try {
		ColorMapFile::save(m_colorMap, path);
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		reporter()->critical(this, tr(ColorMapFile::READ_ERROR_TITLE), QString::fromStdString(ex.what()));
		return false;
	}
	m_lastDirectory = QFileInfo(path).absolutePath();
	return true;
}


bool ColorMapEditWidget::loadColorMap(const QString & path) {
	try {
		setColorMap(ColorMapFile::load(path));
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		reporter()->critical(this, tr(ColorMapFile::READ_ERROR_TITLE), tr(ColorMapFile::READ_ERROR_TEXT).arg(m_logFilePath));
		return false;
	}
	m_lastDirectory = QFileInfo(path).absolutePath();
	emit colorMapChanged();
	return true;
}


QImage ColorMapEditWidget::previewImage(const ColorMap & colorMap, const QSize & size) {
	QImage image(size, QImage::Format_ARGB32);
	QPainter painter(&image);
	const int w = size.width();
	if (colorMap.m_type == ColorMap::AlphaMap) {
		for (int y = 0; y < size.height(); y += CHECKER_SIZE)
			for (int x = 0; x < w; x += CHECKER_SIZE)
				painter.fillRect(x, y, CHECKER_SIZE, CHECKER_SIZE,
								 ((x + y)/CHECKER_SIZE) % 2 == 0 ? QColor(Qt::white) : QColor(Qt::lightGray));
	}
	for (int x = 0; x < w; ++x) {
		const double t = w > 1 ? static_cast<double>(x)/(w - 1) : 0.0;
		QColor c;
		if (colorMap.m_type == ColorMap::AlphaMap) {
			c = colorMap.m_alphaColor;
			c.setAlphaF(t);
		}
		else {
			c = linearMapColor(colorMap.m_linearColorStops, t);
		}
		painter.fillRect(x, 0, 1, size.height(), c);
	}
	return image;
}


QColor ColorMapEditWidget::chooseColor(const QColor & initial) {
	return QColorDialog::getColor(initial, this);
}


void ColorMapEditWidget::on_radioButtonLinearMap_toggled(bool checked) {
	m_colorMap.m_type = checked ? ColorMap::LinearMap : ColorMap::AlphaMap;
	m_ui->groupBoxLinearMap->setEnabled(checked);
	m_ui->groupBoxAlphaMap->setEnabled(!checked);
	colorMapEdited();
}


void ColorMapEditWidget::on_tableWidgetColorStops_cellChanged(int row, int column) {
	QVector<ColorMap::ColorStop> & stops = m_colorMap.m_linearColorStops;
	// only the positions of inner stops are editable
	if (column != 0 || row <= 0 || row >= stops.size() - 1)
		return;
	const double lower = stops[row-1].m_pos;
	const double upper = stops[row+1].m_pos;
	double pos;
	if (!parsePosition(m_ui->tableWidgetColorStops->item(row, 0)->text(), pos) || pos < lower || pos > upper) {
		reporter()->critical(this, tr("Invalid color stop"),
							 tr("The position must be a number between %1 and %2.").arg(lower).arg(upper));
		updateUi();
		return;
	}
	stops[row].m_pos = pos;
	colorMapEdited();
}


void ColorMapEditWidget::on_tableWidgetColorStops_cellDoubleClicked(int row, int column) {
	QVector<ColorMap::ColorStop> & stops = m_colorMap.m_linearColorStops;
	if (column != 1 || row < 0 || row >= stops.size())
		return;
	const QColor c = chooseColor(stops[row].m_color);
	if (!c.isValid())
		return;
	// stop colours are opaque, as the colour-map file stores them
	stops[row].m_color = QColor(c.rgb());
	updateUi();
	colorMapEdited();
}


void ColorMapEditWidget::on_pushButtonAddStop_clicked() {
	QVector<ColorMap::ColorStop> & stops = m_colorMap.m_linearColorStops;
	if (stops.size() < 2)
		return;
	// the new stop goes halfway between the current stop and the next one
	const int row = qBound(0, m_ui->tableWidgetColorStops->currentRow(), stops.size() - 2);
	const double pos = 0.5*(stops[row].m_pos + stops[row+1].m_pos);
	stops.insert(row + 1, ColorMap::ColorStop(pos, QColor(linearMapColor(stops, pos).rgb())));
	updateUi();
	m_ui->tableWidgetColorStops->setCurrentCell(row + 1, 0);
	colorMapEdited();
}


void ColorMapEditWidget::on_pushButtonRemoveStop_clicked() {
	QVector<ColorMap::ColorStop> & stops = m_colorMap.m_linearColorStops;
	const int row = m_ui->tableWidgetColorStops->currentRow();
	if (row <= 0 || row >= stops.size() - 1)
		return;
	stops.remove(row);
	updateUi();
	colorMapEdited();
}


void ColorMapEditWidget::on_toolButtonFirstColor_clicked() {
	const QColor c = chooseColor(m_firstColor);
	if (c.isValid()) {
		m_firstColor = c;
		m_ui->toolButtonFirstColor->setIcon(colorIcon(c));
	}
}


void ColorMapEditWidget::on_toolButtonLastColor_clicked() {
	const QColor c = chooseColor(m_lastColor);
	if (c.isValid()) {
		m_lastColor = c;
		m_ui->toolButtonLastColor->setIcon(colorIcon(c));
	}
}


void ColorMapEditWidget::on_pushButtonGenerate_clicked() {
	try {
		m_colorMap.setLinearMap(m_firstColor, m_lastColor, m_ui->spinBoxSteps->value());
	}
	catch (ZEB::Exception & ex) {
		ex.reportAllAsErrors();
		reporter()->critical(this, tr("Invalid color map"), QString::fromStdString(ex.what()));
		return;
	}
	updateUi();
	colorMapEdited();
}


void ColorMapEditWidget::on_toolButtonAlphaColor_clicked() {
	const QColor c = chooseColor(m_colorMap.m_alphaColor);
	if (!c.isValid())
		return;
	m_colorMap.m_alphaColor = QColor(c.rgb());
	updateUi();
	colorMapEdited();
}


void ColorMapEditWidget::on_pushButtonSaveColorMap_clicked() {
	QString path = QFileDialog::getSaveFileName(this, tr(ColorMapFile::DIALOG_TITLE), m_lastDirectory,
												tr(ColorMapFile::FILE_FILTER));
	if (path.isEmpty())
		return;
	if (QFileInfo(path).suffix().isEmpty())
		path += ColorMapFile::EXTENSION;
	saveColorMap(path);
}


void ColorMapEditWidget::on_pushButtonLoadColorMap_clicked() {
	const QString path = QFileDialog::getOpenFileName(this, tr(ColorMapFile::DIALOG_TITLE), m_lastDirectory,
													  tr(ColorMapFile::FILE_FILTER));
	if (!path.isEmpty())
		loadColorMap(path);
}


void ColorMapEditWidget::setupUi() {
	Ui & ui = *m_ui;
	auto named = [](auto * widget, const char * name) {
		widget->setObjectName(name);
		return widget;
	};

	QGroupBox * typeBox = named(new QGroupBox(tr("Color map type"), this), "groupBoxColorMapType");
	QHBoxLayout * typeLayout = new QHBoxLayout(typeBox);
	ui.radioButtonLinearMap = named(new QRadioButton(tr("Linear color map"), typeBox), "radioButtonLinearMap");
	ui.radioButtonAlphaMap = named(new QRadioButton(tr("Alpha color map"), typeBox), "radioButtonAlphaMap");
	typeLayout->addWidget(ui.radioButtonLinearMap);
	typeLayout->addWidget(ui.radioButtonAlphaMap);

	ui.groupBoxLinearMap = named(new QGroupBox(tr("Color stops"), this), "groupBoxLinearMap");
	QGridLayout * stopLayout = new QGridLayout(ui.groupBoxLinearMap);
	ui.tableWidgetColorStops = named(new QTableWidget(0, 2, ui.groupBoxLinearMap), "tableWidgetColorStops");
	ui.tableWidgetColorStops->setHorizontalHeaderLabels(QStringList() << tr("Position") << tr("Color"));
	ui.tableWidgetColorStops->horizontalHeader()->setStretchLastSection(true);
	ui.tableWidgetColorStops->setSelectionMode(QAbstractItemView::SingleSelection);
	stopLayout->addWidget(ui.tableWidgetColorStops, 0, 0, 1, 6);
	ui.pushButtonAddStop = named(new QPushButton(tr("Add stop"), ui.groupBoxLinearMap), "pushButtonAddStop");
	ui.pushButtonRemoveStop = named(new QPushButton(tr("Remove stop"), ui.groupBoxLinearMap), "pushButtonRemoveStop");
	ui.pushButtonRemoveStop->setEnabled(false);
	stopLayout->addWidget(ui.pushButtonAddStop, 1, 0, 1, 3);
	stopLayout->addWidget(ui.pushButtonRemoveStop, 1, 3, 1, 3);
	stopLayout->addWidget(new QLabel(tr("From"), ui.groupBoxLinearMap), 2, 0);
	ui.toolButtonFirstColor = named(new QToolButton(ui.groupBoxLinearMap), "toolButtonFirstColor");
	stopLayout->addWidget(ui.toolButtonFirstColor, 2, 1);
	stopLayout->addWidget(new QLabel(tr("to"), ui.groupBoxLinearMap), 2, 2);
	ui.toolButtonLastColor = named(new QToolButton(ui.groupBoxLinearMap), "toolButtonLastColor");
	stopLayout->addWidget(ui.toolButtonLastColor, 2, 3);
	ui.spinBoxSteps = named(new QSpinBox(ui.groupBoxLinearMap), "spinBoxSteps");
	ui.spinBoxSteps->setRange(1, 100);
	ui.spinBoxSteps->setValue(10);
	ui.spinBoxSteps->setSuffix(tr(" steps"));
	stopLayout->addWidget(ui.spinBoxSteps, 2, 4);
	ui.pushButtonGenerate = named(new QPushButton(tr("Generate"), ui.groupBoxLinearMap), "pushButtonGenerate");
	stopLayout->addWidget(ui.pushButtonGenerate, 2, 5);

	ui.groupBoxAlphaMap = named(new QGroupBox(tr("Alpha map"), this), "groupBoxAlphaMap");
	QHBoxLayout * alphaLayout = new QHBoxLayout(ui.groupBoxAlphaMap);
	alphaLayout->addWidget(new QLabel(tr("Color:"), ui.groupBoxAlphaMap));
	ui.toolButtonAlphaColor = named(new QToolButton(ui.groupBoxAlphaMap), "toolButtonAlphaColor");
	alphaLayout->addWidget(ui.toolButtonAlphaColor);
	alphaLayout->addStretch(1);

	ui.labelColorMapPreview = named(new QLabel(this), "labelColorMapPreview");
	ui.labelColorMapPreview->setAlignment(Qt::AlignCenter);

	QHBoxLayout * fileLayout = new QHBoxLayout;
	ui.pushButtonSaveColorMap = named(new QPushButton(tr("Save Color Map..."), this), "pushButtonSaveColorMap");
	ui.pushButtonLoadColorMap = named(new QPushButton(tr("Load Color Map..."), this), "pushButtonLoadColorMap");
	fileLayout->addWidget(ui.pushButtonSaveColorMap);
	fileLayout->addWidget(ui.pushButtonLoadColorMap);

	QVBoxLayout * layout = new QVBoxLayout(this);
	layout->addWidget(typeBox);
	layout->addWidget(ui.groupBoxLinearMap, 1);
	layout->addWidget(ui.groupBoxAlphaMap);
	layout->addWidget(ui.labelColorMapPreview);
	layout->addLayout(fileLayout);
}


void ColorMapEditWidget::updateUi() {
	Ui & ui = *m_ui;
	const bool linear = m_colorMap.m_type == ColorMap::LinearMap;
	{
		const QSignalBlocker blockLinear(ui.radioButtonLinearMap);
		const QSignalBlocker blockAlpha(ui.radioButtonAlphaMap);
		ui.radioButtonLinearMap->setChecked(linear);
		ui.radioButtonAlphaMap->setChecked(!linear);
	}
	ui.groupBoxLinearMap->setEnabled(linear);
	ui.groupBoxAlphaMap->setEnabled(!linear);

	const QVector<ColorMap::ColorStop> & stops = m_colorMap.m_linearColorStops;
	{
		const QSignalBlocker blockTable(ui.tableWidgetColorStops);
		ui.tableWidgetColorStops->setRowCount(stops.size());
		for (int i = 0; i < stops.size(); ++i) {
			QTableWidgetItem * posItem = new QTableWidgetItem(QLocale::c().toString(stops[i].m_pos));
			// the ends of the map stay at 0 and 1
			if (i == 0 || i == stops.size() - 1)
				posItem->setFlags(posItem->flags() & ~Qt::ItemIsEditable);
			ui.tableWidgetColorStops->setItem(i, 0, posItem);
			QTableWidgetItem * colorItem = new QTableWidgetItem(stops[i].m_color.name());
			colorItem->setFlags(colorItem->flags() & ~Qt::ItemIsEditable);
			colorItem->setBackground(stops[i].m_color);
			colorItem->setForeground(qGray(stops[i].m_color.rgb()) < 128 ? Qt::white : Qt::black);
			ui.tableWidgetColorStops->setItem(i, 1, colorItem);
		}
	}
	const int row = ui.tableWidgetColorStops->currentRow();
	ui.pushButtonRemoveStop->setEnabled(row > 0 && row < stops.size() - 1);
	ui.toolButtonFirstColor->setIcon(colorIcon(m_firstColor));
	ui.toolButtonLastColor->setIcon(colorIcon(m_lastColor));
	ui.toolButtonAlphaColor->setIcon(colorIcon(m_colorMap.m_alphaColor));
	ui.labelColorMapPreview->setPixmap(QPixmap::fromImage(previewImage(m_colorMap, PREVIEW_SIZE)));
}


void ColorMapEditWidget::colorMapEdited() {
	m_ui->labelColorMapPreview->setPixmap(QPixmap::fromImage(previewImage(m_colorMap, PREVIEW_SIZE)));
	emit colorMapChanged();
}


MessageBoxReporter * ColorMapEditWidget::reporter() {
	return m_reporter != nullptr ? m_reporter : m_defaultReporter.get();
}

} // namespace SCI
