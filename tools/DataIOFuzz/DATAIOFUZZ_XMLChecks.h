#ifndef DATAIOFUZZ_XMLChecksH
#define DATAIOFUZZ_XMLChecksH

#include <cstddef>
#include <string>

namespace SCI {
class AbstractChartModel;
}

namespace DATAIOFUZZ {

/*! Properties the XML fuzz targets assert beyond "no crash"; a violation aborts (see Checks). */
class XMLChecks {
public:
	/*! For an input that the XML file check lets through: TinyXML, parsing it right before an
		inaccessible page, does not read past its end, and its document has the nesting depth and
		the attribute counts that the markup scan of the check found (equal when the document
		parses, not more when parsing stops with an error), so that the limits of the check hold
		for what the parser builds.
	*/
	static void checkMarkupScan(const char * data, std::size_t size);

	/*! Two chart models of the same kind agree in every property their XML holds. */
	static void checkSameChart(const SCI::AbstractChartModel & a, const SCI::AbstractChartModel & b,
							   const std::string & what);
};

} // namespace DATAIOFUZZ

#endif // DATAIOFUZZ_XMLChecksH
