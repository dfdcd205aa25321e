#include "Sci_Legend.h"

#include <QLayout>

#include "Sci_AbstractChartModel.h"

namespace SCI {

Legend::Legend(QWidget * parent) :
	QwtLegend(parent)
{
	setAutoFillBackground(true);
	// a click on an entry hides or shows its curve
	setDefaultItemMode(QwtLegendData::Clickable);
}


void Legend::applyProperties(const AbstractChartModel & model) {
	typedef AbstractChartModel M;
	setFrameStyle(model.chartData(M::LegendHasFrame).toBool() ? (QFrame::Box | QFrame::Plain) : QFrame::NoFrame);
	setLineWidth(1);
	const QFont font = model.chartData(M::LegendFont).value<QFont>();
	setFont(font);
	for (QWidget * entry : contentsWidget()->findChildren<QWidget *>())
		entry->setFont(font);
	setMaxColumns(static_cast<uint>(qMax(0, model.chartData(M::LegendMaxColumns).toInt())));
	if (contentsWidget()->layout() != nullptr)
		contentsWidget()->layout()->setSpacing(qMax(0, model.chartData(M::LegendSpacing).toInt()));

	QColor background = model.chartData(M::LegendBackgroundColor).value<QColor>();
	background.setAlphaF(qBound(0.0, model.chartData(M::LegendBackgroundTransparency).toDouble(), 1.0));
	QPalette pal = palette();
	pal.setColor(QPalette::Window, background);
	pal.setColor(QPalette::WindowText, QColor(60, 60, 60));
	setPalette(pal);
}


void Legend::setEntryEventFilter(QObject * filter) {
	m_entryEventFilter = filter;
	installEventFilter(filter);
	contentsWidget()->installEventFilter(filter);
}


QWidget * Legend::createWidget(const QwtLegendData & data) const {
	QWidget * entry = QwtLegend::createWidget(data);
	entry->setFont(font());
	if (m_entryEventFilter != nullptr)
		entry->installEventFilter(m_entryEventFilter);
	return entry;
}

} // namespace SCI
