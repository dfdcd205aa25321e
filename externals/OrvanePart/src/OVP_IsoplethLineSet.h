#ifndef OVP_IsoplethLineSetH
#define OVP_IsoplethLineSetH

#include <string>
#include <vector>

#include <QString>

#include <EM_ClimateLimitCurve.h>

class TiXmlElement;

namespace EM {
class ModelTwo2DIsopleth;
}

namespace OVP {

/*! A named set of germination isopleth lines, for example those of one substrate class, as the
	isopleth model evaluates them: shortest germination time first, the limit for germination
	last. An empty set stands for the model's default lines.

	A user writes a set as a table file: lines starting with '#' are comments; the first other
	line is the header, the temperature column followed by one column per line with the line's
	name; every further line gives a temperature in C and the relative humidity in % of each
	line at it (an empty cell: no point of that line there). Columns are separated by tabs,
	semicolons or commas (the first of them found in the header); with tabs or semicolons a
	decimal comma is accepted. The set is named after the file. A session keeps the lines
	themselves, so that it shows the same chart where the file is missing.
*/
struct IsoplethLineSet {
	/*! Most lines and rows a table may hold. */
	static constexpr std::size_t MAX_LINES = 20;
	static constexpr std::size_t MAX_ROWS = 10000;

	/*! Reads a table file. Temperatures must increase from row to row, humidities lie within 0
		to 100 %, every line have a point, and a line never lie above the one before it (a
		longer germination time cannot need a higher humidity). Throws ZEB::Exception naming
		the file and the line of the fault.
	*/
	static IsoplethLineSet readFile(const QString & fileName);
	/*! The set a model evaluates; the default set while it uses its own lines. */
	static IsoplethLineSet of(const EM::ModelTwo2DIsopleth & model);

	/*! Appends the element IsoplethLines (attributes extractor and name) with one Line element
		per line (attribute name, text "T RH;T RH;...") to parent.
	*/
	void writeXML(TiXmlElement * parent, unsigned int extractorIndex) const;
	/*! Reads an IsoplethLines element; throws ZEB::Exception for a malformed one. */
	static IsoplethLineSet readXML(const TiXmlElement * element);

	bool isDefault() const { return m_name.empty(); }
	bool operator==(const IsoplethLineSet & other) const { return m_name == other.m_name && m_lines == other.m_lines; }
	bool operator!=(const IsoplethLineSet & other) const { return !(*this == other); }

	/*! Name of the set; empty for the model's default lines. */
	std::string							m_name;
	std::vector<EM::ClimateLimitCurve>	m_lines;
};

} // namespace OVP

#endif // OVP_IsoplethLineSetH
