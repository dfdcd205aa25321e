#ifndef SD_SampleDataSetH
#define SD_SampleDataSetH

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace SD {

/*! The result set of one simulation run of an old building, written into one directory: a 1D
	exterior wall insulated from inside and a 2D uninsulated exterior wall corner under the same
	hourly climate, with their geometry files, field, flux, mean and single-value outputs and the
	climate as reference file, in generation-6 ASCII and binary form and some outputs also in
	generation-5 form, plus the outdoor temperature as CCD climate data file. The file names are
	fixed (see allFileNames()); everything follows from the options, so the same options give the
	same bytes.
*/
class SampleDataSet {
public:
	/*! What to generate. */
	struct Options {
		std::string		m_directory = "sample-data";	///< created when missing
		std::uint64_t	m_seed = 1;
		std::size_t		m_hours = 2*8760;				///< length of the simulated period
		unsigned int	m_wallElements = 90;			///< elements of the 1D wall
		unsigned int	m_detailCells = 40;				///< grid cells per direction of the corner
		unsigned int	m_detailStep = 24;				///< hours between corner field/flux records
		int				m_startYear = 2023;
		/*! File names (e.g. "wall_temperature.s6o") or output names (e.g. "wall_temperature", all
			its files; see outputName()) to write; empty writes everything.
		*/
		std::vector<std::string>	m_only;
	};

	/*! A file that was written. */
	struct WrittenFile {
		std::string		m_name;		///< file name within the directory
		std::uint64_t	m_size;		///< bytes
	};

	/*! Checks the options (throws for invalid ones or unknown names in m_only). */
	explicit SampleDataSet(const Options & options);

	/*! The names of all files of a complete set, geometry files first. */
	static std::vector<std::string> allFileNames();
	/*! The output or geometry a file of the set belongs to, e.g. "wall_temperature" for
		"wall_temperature_gen5_binary.out", "climate" for the CCD file; empty for other names.
	*/
	static std::string outputName(const std::string & fileName);

	/*! Runs the models and writes the selected files; returns them in the order of
		allFileNames().
	*/
	std::vector<WrittenFile> write();

private:
	/*! True when the file is to be written. */
	bool isSelected(const std::string & fileName) const;

	Options		m_options;
};

} // namespace SD

#endif // SD_SampleDataSetH
