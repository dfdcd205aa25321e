#include "DATAIO_GeoFileWriter.h"

#include <cstdint>
#include <fstream>

#include <ZEB_BinaryIO.h>
#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>
#include <ZEB_StringUtils.h>

#include "DATAIO_GeoFile.h"
#include "DATAIO_NumberText.h"
#include "DATAIO_Version.h"

namespace DATAIO {

void GeoFileWriter::write(const std::string & filename, const GeoFile & geometry, bool binary) {
	FUNCID(GeoFileWriter::write);
	std::ofstream out(filename, std::ios::binary | std::ios::trunc);
	if (!out)
		throw ZEB::Exception(ZEB::MessageFormat("Cannot write geometry file '%1'.").arg(filename), FUNC_ID);
	Version::write(out, binary ? GeoFile::MAGIC_BINARY : GeoFile::MAGIC_ASCII, binary,
				   GeoFile::MAJOR_FILE_VERSION, GeoFile::MINOR_FILE_VERSION);
	if (binary) {
		writeBinaryGeometryData(out, geometry);
	}
	else {
		out << '\n';
		writeASCIISections(out, geometry);
	}
	out.flush();
	if (!out)
		throw ZEB::Exception(ZEB::MessageFormat("Error writing geometry file '%1'.").arg(filename), FUNC_ID);
}


void GeoFileWriter::writeASCIISections(std::ostream & out, const GeoFile & geometry) {
	FUNCID(GeoFileWriter::writeASCIISections);
	std::string text;
	text += GeoFile::KW_MATERIALS;
	text += '\n';
	for (const GeoFile::Material & m : geometry.materials()) {
		if (m.m_name.find_first_of("\r\n") != std::string::npos)
			throw ZEB::Exception(ZEB::MessageFormat("Material name '%1' contains a line break.").arg(m.m_name), FUNC_ID);
		if (m.m_name != ZEB::trimmed(m.m_name, " \t"))
			throw ZEB::Exception(ZEB::MessageFormat("Material name '%1' begins or ends with blanks, which "
				"the ASCII form cannot keep.").arg(m.m_name), FUNC_ID);
		text += "  ";
		NumberText::appendInteger(text, m.m_id);
		text += "  ";
		text += m.m_name;
		text += '\n';
	}
	text += '\n';
	text += GeoFile::KW_GRID;
	text += '\n';
	for (const std::vector<double> * widths : { &geometry.xWidths(), &geometry.yWidths(), &geometry.zWidths() }) {
		text += ' ';
		for (double w : *widths) {
			text += ' ';
			NumberText::appendDouble(text, w);
		}
		text += '\n';
	}
	text += '\n';
	text += GeoFile::KW_ELEMENTS;
	text += '\n';
	for (const GeoFile::Element & e : geometry.elements()) {
		text += "  ";
		NumberText::appendInteger(text, e.m_n);
		for (double v : { e.m_x, e.m_y, e.m_z }) {
			text += ' ';
			NumberText::appendDouble(text, v);
		}
		for (std::uint32_t v : { e.m_matId, e.m_i, e.m_j, e.m_k }) {
			text += ' ';
			NumberText::appendInteger(text, v);
		}
		text += '\n';
		if (text.size() > (1u << 20)) {
			out << text;
			text.clear();
		}
	}
	text += '\n';
	text += GeoFile::KW_SIDES;
	text += '\n';
	for (const GeoFile::Side & s : geometry.sides()) {
		text += "  ";
		NumberText::appendInteger(text, s.m_n);
		for (double v : { s.m_x, s.m_y, s.m_z }) {
			text += ' ';
			NumberText::appendDouble(text, v);
		}
		text += ' ';
		NumberText::appendInteger(text, s.m_orientation);
		text += ' ';
		NumberText::appendInteger(text, s.m_elementA);
		text += ' ';
		NumberText::appendInteger(text, s.m_elementB);
		text += '\n';
		if (text.size() > (1u << 20)) {
			out << text;
			text.clear();
		}
	}
	out << text;
}


void GeoFileWriter::writeBinaryGeometryData(std::ostream & out, const GeoFile & geometry) {
	ZEB::write_value_binary(out, static_cast<std::uint32_t>(geometry.materials().size()));
	for (const GeoFile::Material & m : geometry.materials()) {
		ZEB::write_value_binary(out, m.m_id);
		ZEB::write_string_binary(out, m.m_name);
	}
	ZEB::write_vector_binary(out, geometry.xWidths());
	ZEB::write_vector_binary(out, geometry.yWidths());
	ZEB::write_vector_binary(out, geometry.zWidths());
	ZEB::write_value_binary(out, static_cast<std::uint32_t>(geometry.elements().size()));
	for (const GeoFile::Element & e : geometry.elements()) {
		ZEB::write_value_binary(out, e.m_n);
		ZEB::write_value_binary(out, e.m_x);
		ZEB::write_value_binary(out, e.m_y);
		ZEB::write_value_binary(out, e.m_z);
		ZEB::write_value_binary(out, e.m_matId);
		ZEB::write_value_binary(out, e.m_i);
		ZEB::write_value_binary(out, e.m_j);
		ZEB::write_value_binary(out, e.m_k);
	}
	ZEB::write_value_binary(out, static_cast<std::uint32_t>(geometry.sides().size()));
	for (const GeoFile::Side & s : geometry.sides()) {
		ZEB::write_value_binary(out, s.m_n);
		ZEB::write_value_binary(out, s.m_x);
		ZEB::write_value_binary(out, s.m_y);
		ZEB::write_value_binary(out, s.m_z);
		ZEB::write_value_binary(out, s.m_orientation);
		ZEB::write_value_binary(out, s.m_elementA);
		ZEB::write_value_binary(out, s.m_elementB);
	}
}

} // namespace DATAIO
