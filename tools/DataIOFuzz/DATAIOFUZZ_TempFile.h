#ifndef DATAIOFUZZ_TempFileH
#define DATAIOFUZZ_TempFileH

#include <cstddef>
#include <cstdint>
#include <string>

namespace DATAIOFUZZ {

/*! A scratch file for the fuzz targets: the readers under test take file names, so each input
	is written to this file first. It lives in /dev/shm when that exists (no disk traffic), else
	in the temporary directory, is named after the process id so that parallel fuzzing jobs do
	not collide, and is removed when the object is destroyed.
*/
class TempFile {
public:
	/*! tag distinguishes several files of one process. */
	explicit TempFile(const std::string & tag);
	~TempFile();
	TempFile(const TempFile &) = delete;
	TempFile & operator=(const TempFile &) = delete;

	const std::string & path() const { return m_path; }

	/*! Replaces the content. */
	void write(const std::uint8_t * data, std::size_t size) const;
	/*! Appends to the content. */
	void append(const std::uint8_t * data, std::size_t size) const;

	/*! The path of a scratch file or folder: "orvane-fuzz-<pid>-<tag>" in /dev/shm or in the
		temporary directory.
	*/
	static std::string scratchPath(const std::string & tag);

private:
	std::string		m_path;
};

} // namespace DATAIOFUZZ

#endif // DATAIOFUZZ_TempFileH
