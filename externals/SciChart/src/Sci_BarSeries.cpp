#include "Sci_BarSeries.h"

#include <QPainter>
#include <QPen>
#include <QVector>

#include <qwt_column_symbol.h>
#include <qwt_plot_barchart.h>

#include "Sci_AbstractBarSeriesModel.h"

namespace SCI {

namespace {

/*! Draws a bar as a rectangle filled with one colour and outlined with a pen. */
class BarSymbol : public QwtColumnSymbol {
public:
	BarSymbol(const QColor & fill, const QPen & frame) :
		QwtColumnSymbol(QwtColumnSymbol::Box),
		m_fill(fill),
		m_frame(frame)
	{}
	void draw(QPainter * painter, const QwtColumnRect & rect) const override {
		painter->save();
		painter->setPen(m_frame);
		painter->setBrush(m_fill);
		painter->drawRect(rect.toRect());
		painter->restore();
	}
private:
	QColor	m_fill;
	QPen	m_frame;
};

/*! Share of the distance between bar positions taken by a group of bars. */
const double GROUP_WIDTH = 0.8;

} // namespace


BarSeries::BarSeries(const AbstractBarSeriesModel * model) :
	ChartSeries(new QwtPlotBarChart),
	m_model(model)
{
	barChart()->setLayoutPolicy(QwtPlotAbstractBarChart::ScaleSamplesToAxes);
	barChart()->setLegendMode(QwtPlotBarChart::LegendChartTitle);
	barChart()->setLegendIconSize(QSize(12, 12));
	setGroupLayout(0, 1);
}


QwtPlotBarChart * BarSeries::barChart() const {
	return static_cast<QwtPlotBarChart *>(plotItem());
}


void BarSeries::updateData(int seriesIndex) {
	const unsigned int count = m_model->barCount();
	QVector<QPointF> samples;
	samples.reserve(static_cast<int>(count));
	for (unsigned int b = 0; b < count; ++b)
		samples.append(QPointF(b + m_offset, m_model->barValue(seriesIndex, b)));
	barChart()->setSamples(samples);
}


void BarSeries::updateProperty(int seriesIndex, int role) {
	typedef AbstractBarSeriesModel M;
	if (role < 0 || role == M::BarTitleText)
		barChart()->setTitle(m_model->seriesData(seriesIndex, M::BarTitleText).toString());
	if (role < 0 || role == M::BarColor || role == M::BarFramePen)
		barChart()->setSymbol(new BarSymbol(m_model->seriesData(seriesIndex, M::BarColor).value<QColor>(),
											m_model->seriesData(seriesIndex, M::BarFramePen).value<QPen>()));
}


void BarSeries::setGroupLayout(int seriesIndex, int seriesCount) {
	const int n = qMax(1, seriesCount);
	const double width = GROUP_WIDTH/n;
	const double offset = -0.5*GROUP_WIDTH + (seriesIndex + 0.5)*width;
	// a narrow gap between the bars of one group
	barChart()->setLayoutHint(0.9*width);
	if (offset == m_offset)
		return;
	QVector<QPointF> samples;
	for (size_t i = 0; i < barChart()->dataSize(); ++i) {
		const QPointF p = barChart()->sample(i);
		samples.append(QPointF(p.x() - m_offset + offset, p.y()));
	}
	m_offset = offset;
	barChart()->setSamples(samples);
}

} // namespace SCI
