#ifndef OVP_FileReaderRegistryH
#define OVP_FileReaderRegistryH

#include <memory>
#include <string>
#include <vector>

#include "OVP_FileReader.h"

namespace OVP {

/*! The data file readers the program knows, in the order in which they are asked to take a
	file (the more particular formats first). Files of the simulation program itself are never
	handed to a reader.
*/
class FileReaderRegistry {
public:
	/*! The registry with every reader of the program. */
	static const FileReaderRegistry & instance();

	/*! The reader that takes the file, null for none (also for the simulation program's own
		output files, and for a file that cannot be opened). Reads the first bytes of the file.
	*/
	const FileReader * readerFor(const std::string & fileName) const;
	/*! The reader for a file whose first bytes are head; null for none. */
	const FileReader * readerFor(const std::string & fileName, const std::string & head) const;
	/*! The file name patterns of all readers, each once, in reader order. */
	std::vector<std::string> patterns() const;
	const std::vector<std::unique_ptr<FileReader> > & readers() const { return m_readers; }

	/*! True when head begins like an output or geometry file of the simulation program. */
	static bool isSimulationFile(const std::string & head);
	/*! True when the file name matches one of the patterns ("*.csv"; case is ignored). */
	static bool matches(const std::string & fileName, const std::vector<std::string> & patterns);

private:
	FileReaderRegistry();

	std::vector<std::unique_ptr<FileReader> >	m_readers;
};

} // namespace OVP

#endif // OVP_FileReaderRegistryH
