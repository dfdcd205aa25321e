#include "EMF_PaintDevice.h"

#include <climits>
#include <cmath>

#include <ZEB_MessageFormat.h>

#include "EMF_PaintEngine.h"

namespace EMF {

PaintDevice::PaintDevice(const QString & fileName, const QSize & sizePx, double dpi) :
	PaintDevice(sizePx, dpi)
{
	FUNCID(EMF::PaintDevice::PaintDevice);
	if (fileName.isEmpty())
		throw ZEB::Exception("Missing file name.", FUNC_ID);
	m_fileName = fileName;
}


PaintDevice::PaintDevice(const QSize & sizePx, double dpi) :
	m_sizePx(sizePx),
	m_dpi(dpi)
{
	FUNCID(EMF::PaintDevice::PaintDevice);
	if (sizePx.width() < 1 || sizePx.height() < 1)
		throw ZEB::Exception(ZEB::MessageFormat("Invalid picture size %1 x %2 pixels.")
							 .arg(sizePx.width()).arg(sizePx.height()), FUNC_ID);
	if (!(dpi > 0) || !std::isfinite(dpi))
		throw ZEB::Exception(ZEB::MessageFormat("Invalid resolution %1 dpi.").arg(dpi), FUNC_ID);
}


PaintDevice::~PaintDevice() {
}


QPaintEngine * PaintDevice::paintEngine() const {
	if (!m_engine)
		m_engine.reset(new PaintEngine);
	return m_engine.get();
}


QSizeF PaintDevice::sizeMM() const {
	return QSizeF(m_sizePx.width() * 25.4 / m_dpi, m_sizePx.height() * 25.4 / m_dpi);
}


void PaintDevice::setLogicalUnitsPerInch(double unitsPerInch) {
	if (unitsPerInch > 0 && std::isfinite(unitsPerInch))
		m_unitsPerInch = unitsPerInch;
}


double PaintDevice::logicalUnitsPerPixel() const {
	return std::max(1.0, m_unitsPerInch / m_dpi);
}


void PaintDevice::throwIfError() const {
	if (hasError())
		throw m_error;
}


int PaintDevice::metric(PaintDeviceMetric metric) const {
	switch (metric) {
		case PdmWidth:			return m_sizePx.width();
		case PdmHeight:			return m_sizePx.height();
		case PdmWidthMM:		return int(std::lround(m_sizePx.width() * 25.4 / m_dpi));
		case PdmHeightMM:		return int(std::lround(m_sizePx.height() * 25.4 / m_dpi));
		case PdmNumColors:		return INT_MAX;
		case PdmDepth:			return 32;
		case PdmDpiX:
		case PdmDpiY:
		case PdmPhysicalDpiX:
		case PdmPhysicalDpiY:	return std::max(1, int(std::lround(m_dpi)));
		case PdmDevicePixelRatio:	return 1;
		case PdmDevicePixelRatioScaled:	return int(devicePixelRatioFScale());
	}
	return 0;
}


void PaintDevice::clearState() {
	m_error = ZEB::Exception();
	m_written = false;
	m_data.clear();
}


void PaintDevice::setError(const ZEB::Exception & ex) {
	m_error = ex;
	m_written = false;
	ex.reportAllAsErrors();
}

} // namespace EMF
