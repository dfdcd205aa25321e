#include "Sci_AbstractExportWidget.h"

#include <algorithm>

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

#include <qwt_plot.h>

#include "Sci_PositiveNumberLineEdit.h"

namespace SCI {

AbstractExportWidget::AbstractExportWidget(QwtPlot * plot, QWidget * parent) :
	QWidget(parent),
	m_plot(plot)
{
	if (plot != nullptr && plot->width() > 0 && plot->height() > 0)
		m_aspectRatio = static_cast<double>(plot->width())/plot->height();
}


QSize AbstractExportWidget::screenSize() const {
	const QSize size = m_plot != nullptr ? m_plot->size() : QSize(800, 600);
	return QSize(std::max(1, size.width()), std::max(1, size.height()));
}


void AbstractExportWidget::addSizeEdits(QGridLayout * grid, int row, const char * xName, const char * yName,
										PositiveNumberLineEdit *& x, PositiveNumberLineEdit *& y)
{
	x = new PositiveNumberLineEdit(this);
	x->setObjectName(xName);
	grid->addWidget(x, row, 1);
	grid->addWidget(new QLabel("x", this), row, 2);
	y = new PositiveNumberLineEdit(this);
	y->setObjectName(yName);
	grid->addWidget(y, row, 3);
}


QCheckBox * AbstractExportWidget::addCheckBox(QGridLayout * grid, int row, const QString & text,
											  const char * objectName, bool checked)
{
	QCheckBox * checkBox = new QCheckBox(text, this);
	checkBox->setObjectName(objectName);
	checkBox->setChecked(checked);
	grid->addWidget(checkBox, row, 0, 1, 4);
	return checkBox;
}

} // namespace SCI
