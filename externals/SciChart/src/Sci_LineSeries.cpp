#include "Sci_LineSeries.h"

#include <QVector>

#include <qwt_curve_fitter.h>
#include <qwt_plot.h>
#include <qwt_symbol.h>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include "Sci_AbstractLineSeriesModel.h"
#include "Sci_CurveData.h"
#include "Sci_DataReductionCurveFitter.h"
#include "Sci_PlotCurve.h"
#include "Sci_SeriesDataEmpty.h"

namespace SCI {

LineSeries::LineSeries(const AbstractLineSeriesModel * model) :
	ChartSeries(new PlotCurve),
	m_model(model)
{
	curve()->setData(new SeriesDataEmpty);
}


PlotCurve * LineSeries::curve() const {
	return static_cast<PlotCurve *>(plotItem());
}


void LineSeries::updateData(int seriesIndex) {
	FUNCID(LineSeries::updateData);
	const unsigned int n = m_model->size(seriesIndex);
	if (n == 0) {
		curve()->setData(new SeriesDataEmpty);
		return;
	}
	const double * x = m_model->xValues(seriesIndex);
	const double * y = m_model->yValues(seriesIndex);
	if (x == nullptr || y == nullptr)
		throw ZEB::Exception(ZEB::MessageFormat("Line series #%1 has %2 values, but the model returned no value array.")
							 .arg(seriesIndex).arg(n), FUNC_ID);
	QVector<double> xv(static_cast<int>(n));
	QVector<double> yv(static_cast<int>(n));
	const double sign = m_inverted ? -1 : 1;
	for (int i = 0; i < static_cast<int>(n); ++i) {
		xv[i] = x[i];
		yv[i] = sign*y[i];
	}
	curve()->setData(new CurveData(xv, yv));
}


void LineSeries::updateProperty(int seriesIndex, int role) {
	typedef AbstractLineSeriesModel M;
	const bool all = role < 0;
	PlotCurve * c = curve();
	// the title as shown, which a derived model may complete beyond the editable text
	if (all || role == M::SeriesTitleText || role == M::SeriesTitle)
		c->setTitle(m_model->seriesData(seriesIndex, M::SeriesTitle).toString());
	if (all || role == M::SeriesPen || role == M::SeriesPenWidth || role == M::SeriesPenColor)
		c->setPen(m_model->seriesData(seriesIndex, M::SeriesPen).value<QPen>());
	if (all || role == M::SeriesLeftAxis)
		c->setYAxis(m_model->seriesData(seriesIndex, M::SeriesLeftAxis).toBool() ? QwtPlot::yLeft : QwtPlot::yRight);
	if (all || role == M::SeriesLineStyle) {
		const int style = m_model->seriesData(seriesIndex, M::SeriesLineStyle).toInt();
		// NoCurve, Lines, Sticks, Steps, Dots; anything else is drawn as lines
		c->setStyle(style >= QwtPlotCurve::NoCurve && style <= QwtPlotCurve::Dots ?
						static_cast<QwtPlotCurve::CurveStyle>(style) : QwtPlotCurve::Lines);
	}
	if (all || role == M::SeriesMarkerStyle || role == M::SeriesMarkerSize || role == M::SeriesMarkerFilled ||
		role == M::SeriesMarkerColor)
	{
		updateSymbol(seriesIndex);
	}
	if (all || role == M::SeriesInverted) {
		const bool inverted = m_model->seriesData(seriesIndex, M::SeriesInverted).toBool();
		if (inverted != m_inverted) {
			m_inverted = inverted;
			updateData(seriesIndex);
		}
	}
	if (all || role == M::SeriesFitted) {
		m_fitted = m_model->seriesData(seriesIndex, M::SeriesFitted).toBool();
		updateFitter();
	}
	if (all || role == M::SeriesInLegend)
		c->setItemAttribute(QwtPlotItem::Legend, m_model->seriesData(seriesIndex, M::SeriesInLegend).toBool());
}


void LineSeries::setDataReduction(bool enabled) {
	if (enabled == m_dataReduction)
		return;
	m_dataReduction = enabled;
	updateFitter();
}


void LineSeries::setLegendIcon(int style, int width) {
	curve()->setLegendIconStyle(style);
	curve()->setLegendIconSize(QSize(qMax(width, 4), 10));
}


void LineSeries::updateFitter() {
	PlotCurve * c = curve();
	if (m_fitted) {
		c->setCurveFitter(new QwtSplineCurveFitter);
		c->setCurveAttribute(QwtPlotCurve::Fitted, true);
	}
	else if (m_dataReduction) {
		c->setCurveFitter(new DataReductionCurveFitter);
		c->setCurveAttribute(QwtPlotCurve::Fitted, true);
	}
	else {
		c->setCurveFitter(nullptr);
		c->setCurveAttribute(QwtPlotCurve::Fitted, false);
	}
}


void LineSeries::updateSymbol(int seriesIndex) {
	typedef AbstractLineSeriesModel M;
	const int style = m_model->seriesData(seriesIndex, M::SeriesMarkerStyle).toInt();
	// the drawn marker shapes, from Ellipse to Hexagon; others (user paths, pixmaps) are not offered
	if (style < QwtSymbol::Ellipse || style > QwtSymbol::Hexagon) {
		curve()->setSymbol(nullptr);
		return;
	}
	const QColor color = m_model->seriesData(seriesIndex, M::SeriesMarkerColor).value<QColor>();
	const bool filled = m_model->seriesData(seriesIndex, M::SeriesMarkerFilled).toBool();
	const int size = qMax(1, static_cast<int>(m_model->seriesData(seriesIndex, M::SeriesMarkerSize).toUInt()));
	curve()->setSymbol(new QwtSymbol(static_cast<QwtSymbol::Style>(style),
									 filled ? QBrush(color) : QBrush(Qt::NoBrush),
									 QPen(color, 1), QSize(size, size)));
}

} // namespace SCI
