#include "Sci_DataReductionCurveFitter.h"

#include <QString>

#include <ZEB_FunctionId.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_MessageHandler.h>

namespace SCI {

DataReductionCurveFitter::DataReductionCurveFitter() {
	setChunkSize(CHUNK_SIZE);
}


QPolygonF DataReductionCurveFitter::fitCurve(const QPolygonF & points) const {
	FUNCID(DataReductionCurveFitter::fitCurve);
	// each pass uses a fitter of its own: fitCurve() is const, the tolerance changes per pass
	QwtWeedingCurveFitter pass;
	pass.setChunkSize(chunkSize());
	double tolerance = 1e-5;
	QPolygonF reduced;
	for (int passIndex = 0; passIndex < 4; ++passIndex) {
		tolerance *= 10;
		pass.setTolerance(tolerance);
		reduced = pass.fitCurve(points);
		if (reduced.size() <= MAXIMUM_POINTS)
			break;
	}
	// a detail of every redraw, shown only at high verbosity
	ZEB::reportProgress(ZEB::MessageFormat("Data reduction (tol=%3): %1   -> %2\n")
						.arg(points.size()).arg(reduced.size())
						.arg(QString::number(tolerance, 'g').toStdString()).str(), FUNC_ID, 3);
	return reduced;
}

} // namespace SCI
