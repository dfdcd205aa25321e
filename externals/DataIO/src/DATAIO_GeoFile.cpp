#include "DATAIO_GeoFile.h"

#include <cstring>
#include <fstream>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_StringUtils.h>

#include "DATAIO_BinaryReader.h"
#include "DATAIO_Tokenizer.h"
#include "DATAIO_Version.h"

namespace DATAIO {

const char * const GeoFile::MAGIC_ASCII = "S6GAQXV!";
const char * const GeoFile::MAGIC_BINARY = "S6GBQXV!";
const char * const GeoFile::KW_MATERIALS = "MATERIALS";
const char * const GeoFile::KW_GRID = "GRID";
const char * const GeoFile::KW_ELEMENTS = "ELEMENT_GEOMETRY";
const char * const GeoFile::KW_SIDES = "SIDES_GEOMETRY";

namespace {

/*! Largest number of materials a binary file may declare. */
const std::uint32_t MAX_MATERIALS = 100000;
/*! Longest material name in a binary file. */
const unsigned int MAX_MATERIAL_NAME = 10000;
/*! Largest number of element widths per direction in a binary file. */
const unsigned int MAX_GRID_WIDTHS = 1000000;
/*! Sizes of the fixed-size records of the binary tables. */
const std::size_t ELEMENT_RECORD_SIZE = 4 + 3*8 + 4*4;
const std::size_t SIDE_RECORD_SIZE = 4 + 3*8 + 4 + 2*4;

/*! Bitwise equality, so that -0 and 0 differ and a NaN equals itself. */
bool sameBits(double a, double b) {
	return std::memcmp(&a, &b, sizeof(double)) == 0;
}

bool sameBits(const std::vector<double> & a, const std::vector<double> & b) {
	return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size()*sizeof(double)) == 0);
}

/*! Copies a value of type T from a record buffer and advances the read pointer. */
template <typename T>
void take(const char *& p, T & value) {
	std::memcpy(&value, p, sizeof(T));
	p += sizeof(T);
}

/*! Throws the table message (e.g. "Currupt element table!") on top of a detail message. */
[[noreturn]] void throwCorrupt(const char * tableMessage, const ZEB::MessageFormat & detail, const char * funcId) {
	throw ZEB::Exception(ZEB::Exception(detail, funcId), tableMessage, funcId);
}

/*! Checks the widths of one direction: there must be some, and all positive. */
void checkWidths(const std::vector<double> & widths, char direction, bool binary, const char * funcId) {
	if (widths.empty())
		throw ZEB::Exception(ZEB::MessageFormat("Missing element widths in %1 direction!")
							 .arg(std::string(1, direction)), funcId);
	for (double w : widths) {
		if (w > 0)
			continue;
		if (binary)
			throw ZEB::Exception(ZEB::MessageFormat("Zero or negative element width in %1 direction")
								 .arg(std::string(1, direction)), funcId);
		if (direction == 'z')
			throw ZEB::Exception("Zero element width in z direction!", funcId);
		throw ZEB::Exception(ZEB::MessageFormat("Zero element width in %1 direction")
							 .arg(std::string(1, direction)), funcId);
	}
}

} // namespace


bool GeoFile::Element::operator==(const Element & o) const {
	return m_n == o.m_n && sameBits(m_x, o.m_x) && sameBits(m_y, o.m_y) && sameBits(m_z, o.m_z) &&
		m_matId == o.m_matId && m_i == o.m_i && m_j == o.m_j && m_k == o.m_k;
}


bool GeoFile::Side::operator==(const Side & o) const {
	return m_n == o.m_n && sameBits(m_x, o.m_x) && sameBits(m_y, o.m_y) && sameBits(m_z, o.m_z) &&
		m_orientation == o.m_orientation && m_elementA == o.m_elementA && m_elementB == o.m_elementB;
}


void GeoFile::clear() {
	m_filename.clear();
	m_isBinary = false;
	m_majorFileVersion = MAJOR_FILE_VERSION;
	m_minorFileVersion = MINOR_FILE_VERSION;
	m_materials.clear();
	m_xWidths.clear();
	m_yWidths.clear();
	m_zWidths.clear();
	m_elements.clear();
	m_sides.clear();
}


bool GeoFile::isEmpty() const {
	return m_materials.empty() && m_xWidths.empty() && m_yWidths.empty() && m_zWidths.empty() &&
		m_elements.empty() && m_sides.empty();
}


void GeoFile::setFileVersion(unsigned int majorVersion, unsigned int minorVersion) {
	m_majorFileVersion = majorVersion;
	m_minorFileVersion = minorVersion;
}


void GeoFile::setGrid(const std::vector<double> & xWidths, const std::vector<double> & yWidths,
					  const std::vector<double> & zWidths)
{
	m_xWidths = xWidths;
	m_yWidths = yWidths;
	m_zWidths = zWidths;
}


bool GeoFile::hasMaterial(std::uint32_t id) const {
	for (const Material & m : m_materials)
		if (m.m_id == id)
			return true;
	return false;
}


bool GeoFile::sameContent(const GeoFile & other) const {
	return m_materials == other.m_materials && sameBits(m_xWidths, other.m_xWidths) &&
		sameBits(m_yWidths, other.m_yWidths) && sameBits(m_zWidths, other.m_zWidths) &&
		m_elements == other.m_elements && m_sides == other.m_sides;
}


void GeoFile::read(const std::string & filename) {
	FUNCID(GeoFile::read);
	clear();
	try {
		std::ifstream in(filename, std::ios::binary);
		if (!in)
			throw ZEB::Exception(ZEB::MessageFormat("Couldn't open geometry file '%1'.").arg(filename), FUNC_ID);
		in.seekg(0, std::ios::end);
		const std::streamoff size = in.tellg();
		in.seekg(0, std::ios::beg);
		bool binary = false;
		unsigned int majorVersion = 0;
		unsigned int minorVersion = 0;
		try {
			Version::read(in, MAGIC_ASCII, MAGIC_BINARY, binary, majorVersion, minorVersion);
		}
		catch (ZEB::Exception & ex) {
			throw ZEB::Exception(ex, "Couldn't read magic file header, invalid or unrecognized file format.", FUNC_ID);
		}
		if (majorVersion != MAJOR_FILE_VERSION)
			throw ZEB::Exception("Unknown major file version, not able to read this format!", FUNC_ID);
		if (minorVersion > MINOR_FILE_VERSION)
			throw ZEB::Exception("Unknown file version, not able to read this format!", FUNC_ID);

		if (binary) {
			try {
				readBinaryGeometryData(in, size < 0 ? 0 : static_cast<std::uint64_t>(size));
			}
			catch (ZEB::Exception & ex) {
				throw ZEB::Exception(ex, "Error reading binary geometry data.", FUNC_ID);
			}
		}
		else {
			std::string text(static_cast<std::size_t>(size > 16 ? size - 16 : 0), '\0');
			in.read(&text[0], static_cast<std::streamsize>(text.size()));
			text.resize(static_cast<std::size_t>(in.gcount()));
			try {
				parseGeometryData(text);
			}
			catch (ZEB::Exception & ex) {
				throw ZEB::Exception(ex, "Error reading ASCII geometry file!", FUNC_ID);
			}
		}
		m_filename = filename;
		m_isBinary = binary;
		m_majorFileVersion = majorVersion;
		m_minorFileVersion = minorVersion;
	}
	catch (ZEB::Exception & ex) {
		clear();
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error reading geometry file '%1'.").arg(filename), FUNC_ID);
	}
	catch (std::exception & ex) {
		clear();
		throw ZEB::Exception(ex, ZEB::MessageFormat("Error reading geometry file '%1'.").arg(filename), FUNC_ID);
	}
}


void GeoFile::parseGeometryData(const std::string & text) {
	FUNCID(GeoFile::parseGeometryData);
	enum Section { S_NONE, S_MATERIALS, S_GRID, S_ELEMENTS, S_SIDES };
	const char * const keywords[] = { nullptr, KW_MATERIALS, KW_GRID, KW_ELEMENTS, KW_SIDES };
	m_materials.clear();
	m_xWidths.clear();
	m_yWidths.clear();
	m_zWidths.clear();
	m_elements.clear();
	m_sides.clear();
	try {
		Section section = S_NONE;
		bool seen[5] = {};
		unsigned int gridLines = 0;
		std::vector<double> * grid[3] = { &m_xWidths, &m_yWidths, &m_zWidths };
		std::size_t lineStart = 0;
		while (lineStart < text.size()) {
			std::size_t lineEnd = text.find('\n', lineStart);
			if (lineEnd == std::string::npos)
				lineEnd = text.size();
			const std::string line = ZEB::trimmed(text.substr(lineStart, lineEnd - lineStart));
			lineStart = lineEnd + 1;
			if (line.empty())
				continue;
			bool isKeyword = false;
			for (int s = S_MATERIALS; s <= S_SIDES; ++s) {
				if (line == keywords[s]) {
					if (seen[s])
						throw ZEB::Exception(ZEB::MessageFormat("Section '%1' appears twice.").arg(line), FUNC_ID);
					seen[s] = true;
					section = static_cast<Section>(s);
					isKeyword = true;
				}
			}
			if (isKeyword)
				continue;

			Tokenizer tok(line.data(), line.data() + line.size());
			switch (section) {
				case S_NONE :
					throw ZEB::Exception(ZEB::MessageFormat("Unexpected line '%1' outside of a section.").arg(line), FUNC_ID);

				case S_MATERIALS : {
					Material m;
					if (!tok.nextInteger(m.m_id))
						throw ZEB::Exception(ZEB::MessageFormat("Invalid material definition '%1'.").arg(line), FUNC_ID);
					m.m_name = std::string(tok.rest(), line.data() + line.size());
					m_materials.push_back(m);
				} break;

				case S_GRID : {
					if (gridLines == 3)
						throw ZEB::Exception("More than three lines of element widths in GRID section.", FUNC_ID);
					ZEB::string2valueVector(line, *grid[gridLines]);
					++gridLines;
				} break;

				case S_ELEMENTS : {
					Element e;
					if (!tok.nextInteger(e.m_n) || !tok.nextDouble(e.m_x) || !tok.nextDouble(e.m_y) ||
						!tok.nextDouble(e.m_z) || !tok.nextInteger(e.m_matId) || !tok.nextInteger(e.m_i) ||
						!tok.nextInteger(e.m_j) || !tok.nextInteger(e.m_k) || !tok.atEnd())
					{
						throwCorrupt("Currupt element table!", ZEB::MessageFormat("Invalid element line '%1'.").arg(line), FUNC_ID);
					}
					m_elements.push_back(e);
				} break;

				case S_SIDES : {
					Side s;
					if (!tok.nextInteger(s.m_n) || !tok.nextDouble(s.m_x) || !tok.nextDouble(s.m_y) ||
						!tok.nextDouble(s.m_z) || !tok.nextInteger(s.m_orientation) ||
						!tok.nextInteger(s.m_elementA) || !tok.nextInteger(s.m_elementB) || !tok.atEnd())
					{
						throwCorrupt("Currupt sides table!", ZEB::MessageFormat("Invalid side line '%1'.").arg(line), FUNC_ID);
					}
					m_sides.push_back(s);
				} break;
			}
		}
		checkWidths(m_xWidths, 'x', false, FUNC_ID);
		checkWidths(m_yWidths, 'y', false, FUNC_ID);
		checkWidths(m_zWidths, 'z', false, FUNC_ID);
		checkTables(FUNC_ID);
	}
	catch (ZEB::Exception & ex) {
		throw ZEB::Exception(ex, "Error on parse geometry data.", FUNC_ID);
	}
}


void GeoFile::readBinaryGeometryData(std::istream & in, std::uint64_t end) {
	FUNCID(GeoFile::readBinaryGeometryData);
	m_materials.clear();
	m_xWidths.clear();
	m_yWidths.clear();
	m_zWidths.clear();
	m_elements.clear();
	m_sides.clear();
	BinaryReader reader(in, end);

	std::uint32_t count = 0;
	reader.value(count);
	if (count > MAX_MATERIALS)
		throw ZEB::Exception("Number of materials in materials table > 100000, binary file probably corrupt!", FUNC_ID);
	reader.checkFits(count, 8);	// id and name length at least
	m_materials.resize(count);
	for (Material & m : m_materials) {
		reader.value(m.m_id);
		reader.string(m.m_name, MAX_MATERIAL_NAME);
	}

	reader.vector(m_xWidths, MAX_GRID_WIDTHS);
	reader.vector(m_yWidths, MAX_GRID_WIDTHS);
	reader.vector(m_zWidths, MAX_GRID_WIDTHS);
	checkWidths(m_xWidths, 'x', true, FUNC_ID);
	checkWidths(m_yWidths, 'y', true, FUNC_ID);
	checkWidths(m_zWidths, 'z', true, FUNC_ID);

	char buf[ELEMENT_RECORD_SIZE > SIDE_RECORD_SIZE ? ELEMENT_RECORD_SIZE : SIDE_RECORD_SIZE];
	count = reader.count(ELEMENT_RECORD_SIZE);
	m_elements.resize(count);
	for (Element & e : m_elements) {
		if (!reader.raw(buf, ELEMENT_RECORD_SIZE))
			throwCorrupt("Currupt element table!", ZEB::MessageFormat("Element record cut short."), FUNC_ID);
		const char * p = buf;
		take(p, e.m_n);
		take(p, e.m_x);
		take(p, e.m_y);
		take(p, e.m_z);
		take(p, e.m_matId);
		take(p, e.m_i);
		take(p, e.m_j);
		take(p, e.m_k);
	}

	count = reader.count(SIDE_RECORD_SIZE);
	m_sides.resize(count);
	for (Side & s : m_sides) {
		if (!reader.raw(buf, SIDE_RECORD_SIZE))
			throwCorrupt("Currupt sides table!", ZEB::MessageFormat("Side record cut short."), FUNC_ID);
		const char * p = buf;
		take(p, s.m_n);
		take(p, s.m_x);
		take(p, s.m_y);
		take(p, s.m_z);
		take(p, s.m_orientation);
		take(p, s.m_elementA);
		take(p, s.m_elementB);
	}
	checkTables(FUNC_ID);
}


void GeoFile::checkTables(const char * funcId) const {
	for (std::size_t idx = 0; idx < m_elements.size(); ++idx) {
		const Element & e = m_elements[idx];
		if (e.m_n != idx)
			throwCorrupt("Currupt element table!", ZEB::MessageFormat("Element #%1 at table position %2, "
				"elements must be numbered in order from 0.").arg(e.m_n).arg(static_cast<unsigned long>(idx)), funcId);
		if (e.m_i >= m_xWidths.size() || e.m_j >= m_yWidths.size() || e.m_k >= m_zWidths.size())
			throwCorrupt("Currupt element table!", ZEB::MessageFormat("Grid index of element #%1 "
				"lies outside the grid.").arg(e.m_n), funcId);
	}
	const std::int64_t elementCount = static_cast<std::int64_t>(m_elements.size());
	for (std::size_t idx = 0; idx < m_sides.size(); ++idx) {
		const Side & s = m_sides[idx];
		if (s.m_n != idx)
			throwCorrupt("Currupt sides table!", ZEB::MessageFormat("Side #%1 at table position %2, "
				"sides must be numbered in order from 0.").arg(s.m_n).arg(static_cast<unsigned long>(idx)), funcId);
		if (s.m_orientation > 2)
			throwCorrupt("Currupt sides table!", ZEB::MessageFormat("Invalid orientation %1 of side #%2.")
						 .arg(s.m_orientation).arg(s.m_n), funcId);
		if (s.m_elementA < NO_ELEMENT || s.m_elementA >= elementCount ||
			s.m_elementB < NO_ELEMENT || s.m_elementB >= elementCount)
			throwCorrupt("Currupt sides table!", ZEB::MessageFormat("Side #%1 references an element "
				"that does not exist.").arg(s.m_n), funcId);
	}
}

} // namespace DATAIO
