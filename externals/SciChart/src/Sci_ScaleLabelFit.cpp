#include "Sci_ScaleLabelFit.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include <QFontMetricsF>

#include <qwt_scale_draw.h>
#include <qwt_scale_map.h>

namespace SCI {

namespace {

/*! Major ticks inside the scale, ordered by their position on the paint device. */
std::vector<double> visibleMajorTicks(const QwtScaleDraw & scaleDraw) {
	const QwtScaleDiv & div = scaleDraw.scaleDiv();
	std::vector<double> ticks;
	for (double v : div.ticks(QwtScaleDiv::MajorTick))
		if (div.contains(v))
			ticks.push_back(v);
	const QwtScaleMap & map = scaleDraw.scaleMap();
	std::sort(ticks.begin(), ticks.end(), [&map](double a, double b) {
		return map.transform(a) < map.transform(b);
	});
	return ticks;
}

} // namespace


int ScaleLabelFit::labelStep(const QwtScaleDraw & scaleDraw, const QFont & font) {
	const std::vector<double> ticks = visibleMajorTicks(scaleDraw);
	const int n = static_cast<int>(ticks.size());
	if (n < 2)
		return 1;
	const bool horizontal = scaleDraw.orientation() == Qt::Horizontal;
	// extent of each label along the scale, in paint device coordinates
	std::vector<std::pair<double, double> > extents;
	for (double v : ticks) {
		const double pos = scaleDraw.scaleMap().transform(v);
		const QRectF r = scaleDraw.labelRect(font, v);
		if (horizontal)
			extents.push_back(std::make_pair(pos + r.left(), pos + r.right()));
		else
			extents.push_back(std::make_pair(pos + r.top(), pos + r.bottom()));
	}
	// a gap of about half a character between labels keeps them readable
	const double gap = 0.5*QFontMetricsF(font).averageCharWidth();
	for (int step = 1; step < n; ++step) {
		bool fits = true;
		for (int i = step; i < n && fits; i += step) {
			const double previousEnd = std::max(extents[i-step].first, extents[i-step].second);
			const double start = std::min(extents[i].first, extents[i].second);
			fits = start >= previousEnd + gap;
		}
		if (fits)
			return step;
	}
	return n;
}


bool ScaleLabelFit::isLabelDrawn(const QwtScaleDraw & scaleDraw, const QFont & font, double value) {
	const int step = labelStep(scaleDraw, font);
	if (step == 1)
		return true;
	const std::vector<double> ticks = visibleMajorTicks(scaleDraw);
	for (std::size_t i = 0; i < ticks.size(); ++i)
		if (ticks[i] == value)
			return i % static_cast<std::size_t>(step) == 0;
	return true;
}

} // namespace SCI
