#include "SD_CcdFileWriter.h"

#include <cstdio>
#include <fstream>

#include <ZEB_Exception.h>
#include <ZEB_MessageFormat.h>

#include <DATAIO_NumberText.h>

#include "SD_OutputFile.h"
#include "SD_SignificantDigits.h"

namespace SD {

void CcdFileWriter::write(const std::string & path, const std::string & description, int startYear,
						  const std::string & keyword, const std::string & unit, const std::vector<double> & hourlyValues)
{
	FUNCID(CcdFileWriter::write);
	std::ofstream out(path, std::ios::binary | std::ios::trunc);
	if (!out)
		throw ZEB::Exception(ZEB::MessageFormat("Cannot create file '%1'.").arg(path), FUNC_ID);
	out << "# " << description << "\n# year: " << startYear << '\n' << keyword << "   " << unit << '\n';
	std::string line;
	for (std::size_t h = 0; h < hourlyValues.size(); ++h) {
		const std::size_t end = h + 1;
		char time[32];
		std::snprintf(time, sizeof(time), "%zu %02zu:00:00   ", end/24, end % 24);
		line = time;
		DATAIO::NumberText::appendDouble(line, SignificantDigits::round(hourlyValues[h], OutputFile::SIGNIFICANT_DIGITS));
		line += '\n';
		out.write(line.data(), static_cast<std::streamsize>(line.size()));
	}
	out.close();
	if (!out)
		throw ZEB::Exception(ZEB::MessageFormat("Error writing file '%1'.").arg(path), FUNC_ID);
}

} // namespace SD
