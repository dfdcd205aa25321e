#include "Sci_BarLabelScaleDraw.h"

#include <cmath>

namespace SCI {

BarLabelScaleDraw::BarLabelScaleDraw(const QStringList & labels) :
	m_labels(labels)
{
	// bar labels sit below their bars, no tick marks between them
	enableComponent(QwtAbstractScaleDraw::Ticks, false);
}


QwtText BarLabelScaleDraw::label(double value) const {
	const double index = std::round(value);
	if (std::fabs(value - index) > 1e-6 || index < 0 || index >= m_labels.size())
		return QwtText();
	return QwtText(m_labels[static_cast<int>(index)]);
}


QwtScaleDiv BarLabelScaleDraw::scaleDiv(int count) {
	QList<double> majorTicks;
	for (int i = 0; i < count; ++i)
		majorTicks.append(i);
	const double upper = count > 0 ? count - 0.5 : 0.5;
	return QwtScaleDiv(-0.5, upper, QList<double>(), QList<double>(), majorTicks);
}

} // namespace SCI
