#ifndef EM_ExtractorTestUtilsH
#define EM_ExtractorTestUtilsH

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <DATAIO_DataIO.h>
#include <DATAIO_GeoFile.h>

#include <EM_ExtractorBase.h>

#include <ZEB_MessageHandler.h>

namespace EMTest {

/*! One message received by a MessageRecorder. */
struct RecordedMessage {
	std::string		m_text;
	ZEB::MsgType	m_type;
	std::string		m_where;
	int				m_level;
};

/*! A message handler that records every message instead of writing it; current while it lives. */
class MessageRecorder : public ZEB::MessageHandler {
public:
	MessageRecorder() { ZEB::MessageHandler::setCurrent(this); }
	~MessageRecorder() override { ZEB::MessageHandler::setCurrent(nullptr); }

	void message(const std::string & msg, ZEB::MsgType type, const char * functionId, int verboseLevel) override {
		m_messages.push_back(RecordedMessage{ msg, type, functionId == nullptr ? "" : functionId, verboseLevel });
	}

	/*! The error messages, in order. */
	std::vector<RecordedMessage> errors() const {
		std::vector<RecordedMessage> result;
		for (const RecordedMessage & m : m_messages)
			if (m.m_type == ZEB::MSG_ERROR)
				result.push_back(m);
		return result;
	}
	/*! True when a message of this type, text and origin was received. */
	bool has(ZEB::MsgType type, const std::string & text, const std::string & where) const {
		for (const RecordedMessage & m : m_messages)
			if (m.m_type == type && m.m_text == text && m.m_where == where)
				return true;
		return false;
	}

	/*! Clears the record and updates e; true when e is not up to date afterwards and this error
		of this origin was reported. */
	bool updateFails(EM::ExtractorBase & e, const std::string & text, const std::string & where) {
		m_messages.clear();
		e.update();
		return e.status() != EM::ExtractorBase::US_UpToDate && has(ZEB::MSG_ERROR, text, where);
	}

	std::vector<RecordedMessage>	m_messages;
};

/*! Sets the target units of an extractor; series have no y unit. */
inline void setTargetUnits(EM::ExtractorBase & e, const char * xUnit, const char * valueUnit, const char * yUnit = nullptr) {
	e.setTargetXUnit(ZEB::Unit(xUnit));
	if (yUnit != nullptr)
		e.setTargetYUnit(ZEB::Unit(yUnit));
	e.setTargetValueUnit(ZEB::Unit(valueUnit));
}

/*! A field (or flux) container in memory for the listed elements (sides), values[t][column],
	with all header fields an extractor needs. */
inline std::unique_ptr<DATAIO::DataIO> fieldContainer(const std::vector<std::uint32_t> & nums, const std::vector<double> & time,
	const std::vector<std::vector<double> > & values, DATAIO::DataIO::DataFormat format,
	DATAIO::DataIO::OutputType type = DATAIO::DataIO::T_FIELD, const char * valueUnit = "C", const char * timeUnit = "h")
{
	std::unique_ptr<DATAIO::DataIO> d(new DATAIO::DataIO);
	d->setFilename("field.d6o");
	d->setQuantity(type == DATAIO::DataIO::T_FLUX ? "Heat flux" : "Temperature");
	d->setType(type);
	d->setSpaceType(DATAIO::DataIO::ST_SINGLE);
	d->setNums(nums);
	d->setTimeUnit(timeUnit);
	d->setValueUnit(valueUnit);
	d->setData(time, values);
	d->setDataFormat(format);
	return d;
}

/*! A 2D container in memory: one mean value per time point. */
inline std::unique_ptr<DATAIO::DataIO> container2D(const std::vector<double> & time, const std::vector<double> & values,
												   const char * timeUnit = "h", const char * valueUnit = "C")
{
	std::vector<std::vector<double> > rows;
	for (double v : values)
		rows.push_back(std::vector<double>(1, v));
	std::unique_ptr<DATAIO::DataIO> d = fieldContainer({ 0 }, time, rows, DATAIO::DataIO::DF_2D, DATAIO::DataIO::T_FIELD,
													   valueUnit, timeUnit);
	d->setFilename("series.d6o");
	d->setSpaceType(DATAIO::DataIO::ST_MEAN);
	return d;
}

/*! A geometry of nx x ny x nz elements with the given widths, the grid starting at the origin.
	With one layer in z (element centres at z = 0.5) it also has all sides normal to x and y.
*/
struct GridGeometry {
	GridGeometry(const std::vector<double> & xWidths, const std::vector<double> & yWidths,
				 const std::vector<double> & zWidths = std::vector<double>(1, 1.0)) :
		m_geo(new DATAIO::GeoFile), m_nx(static_cast<std::uint32_t>(xWidths.size())),
		m_ny(static_cast<std::uint32_t>(yWidths.size())), m_nz(static_cast<std::uint32_t>(zWidths.size()))
	{
		std::vector<double> xEdges(1, 0), yEdges(1, 0), zEdges(1, 0);
		for (double w : xWidths)
			xEdges.push_back(xEdges.back() + w);
		for (double w : yWidths)
			yEdges.push_back(yEdges.back() + w);
		for (double w : zWidths)
			zEdges.push_back(zEdges.back() + w);
		DATAIO::GeoFile::Material m;
		m.m_id = 1;
		m.m_name = "Brick";
		m_geo->setMaterials(std::vector<DATAIO::GeoFile::Material>(1, m));
		m_geo->setGrid(xWidths, yWidths, zWidths);
		std::vector<DATAIO::GeoFile::Element> elements;
		for (std::uint32_t k = 0; k < m_nz; ++k)
			for (std::uint32_t j = 0; j < m_ny; ++j)
				for (std::uint32_t i = 0; i < m_nx; ++i) {
					DATAIO::GeoFile::Element e;
					e.m_n = element(i, j, k);
					e.m_x = 0.5*(xEdges[i] + xEdges[i + 1]);
					e.m_y = 0.5*(yEdges[j] + yEdges[j + 1]);
					e.m_z = 0.5*(zEdges[k] + zEdges[k + 1]);
					e.m_matId = 1;
					e.m_i = i;
					e.m_j = j;
					e.m_k = k;
					elements.push_back(e);
				}
		m_geo->setElements(elements);
		if (m_nz > 1)
			return;
		std::vector<DATAIO::GeoFile::Side> sides;
		// a side of orientation 0 (normal to x) or 1 between elements a and b (before and after it)
		const auto addSide = [&](std::uint32_t n, double x, double y, std::uint32_t orientation, bool hasA, std::uint32_t a,
								 bool hasB, std::uint32_t b) {
			DATAIO::GeoFile::Side s;
			s.m_n = n;
			s.m_x = x;
			s.m_y = y;
			s.m_z = 0.5;
			s.m_orientation = orientation;
			s.m_elementA = hasA ? static_cast<std::int32_t>(a) : DATAIO::GeoFile::NO_ELEMENT;
			s.m_elementB = hasB ? static_cast<std::int32_t>(b) : DATAIO::GeoFile::NO_ELEMENT;
			sides.push_back(s);
		};
		for (std::uint32_t j = 0; j < m_ny; ++j)
			for (std::uint32_t i = 0; i <= m_nx; ++i)
				addSide(xSide(i, j), xEdges[i], 0.5*(yEdges[j] + yEdges[j + 1]), 0, i > 0, element(i - 1, j), i < m_nx, element(i, j));
		for (std::uint32_t i = 0; i < m_nx; ++i)
			for (std::uint32_t j = 0; j <= m_ny; ++j)
				addSide(ySide(i, j), 0.5*(xEdges[i] + xEdges[i + 1]), yEdges[j], 1, j > 0, element(i, j - 1), j < m_ny, element(i, j));
		m_geo->setSides(sides);
	}

	/*! Element number of cell (i, j, k). */
	std::uint32_t element(std::uint32_t i, std::uint32_t j, std::uint32_t k = 0) const { return (k*m_ny + j)*m_nx + i; }
	/*! Number of the x-normal side left of cell (i, j) (i = nx: right of the last cell). */
	std::uint32_t xSide(std::uint32_t i, std::uint32_t j) const { return j*(m_nx + 1) + i; }
	/*! Number of the y-normal side below cell (i, j) (j = ny: above the last cell). */
	std::uint32_t ySide(std::uint32_t i, std::uint32_t j) const { return (m_nx + 1)*m_ny + i*(m_ny + 1) + j; }

	std::shared_ptr<DATAIO::GeoFile>	m_geo;
	std::uint32_t						m_nx;
	std::uint32_t						m_ny;
	std::uint32_t						m_nz;
};

} // namespace EMTest

#endif // EM_ExtractorTestUtilsH
