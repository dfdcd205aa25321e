#ifndef DATAIO_MappedFileH
#define DATAIO_MappedFileH

#include <atomic>
#include <cstdint>
#include <string>

namespace DATAIO {

/*! The first bytes of a file mapped read-only into memory, so that a large text file is read in
	place instead of being copied: the pages come from the system's file cache and cost the
	process no memory of its own; release() lets it drop pages that were read.

	A file that becomes shorter while it is mapped (a simulation started anew writes it from the
	beginning) loses the pages beyond its new end, and reading one of them raises SIGBUS, which
	would end the program. Reads of the mapping therefore happen while a Guard lives on the
	reading thread: the guard's signal handler puts zero pages in place of the lost ones and marks
	the mapping as cut, so that the reader sees NUL bytes, which no line of a text file holds, and
	can tell a cut file from a broken line. The pages before the lost one stay as they are.
*/
class MappedFile {
public:
	MappedFile() = default;
	~MappedFile();
	MappedFile(const MappedFile &) = delete;
	MappedFile & operator=(const MappedFile &) = delete;
	MappedFile(MappedFile && other) noexcept;
	MappedFile & operator=(MappedFile && other) noexcept;

	/*! Maps the first size bytes of the file, replacing an earlier mapping (a size of 0 maps
		nothing). A file system that cannot map files gets its bytes read into memory instead
		(a file shorter than size then counts as cut). Throws ZEB::Exception when the file can
		neither be mapped nor read.
	*/
	void map(const std::string & filename, std::uint64_t size);
	/*! Gives the mapping up. */
	void unmap();

	/*! Byte 0 of the file; null when nothing is mapped. */
	const char * data() const { return m_data; }
	/*! Number of bytes mapped. */
	std::uint64_t size() const { return m_size; }
	/*! True when pages of the mapping were lost because the file became shorter. */
	bool isCut() const { return m_cut.load(std::memory_order_relaxed); }

	/*! Lets the system drop the pages that lie wholly within [begin, end) from this process;
		they stay in the file cache and are mapped again when read again. Bytes read into memory
		are kept.
	*/
	void release(std::uint64_t begin, std::uint64_t end) const;

	/*! Makes reading the mapping safe on the thread that creates it, for as long as it lives;
		a guard created meanwhile on the same thread (a progress callback reading another file)
		takes over until it ends.
	*/
	class Guard {
	public:
		explicit Guard(const MappedFile & file);
		~Guard();
		Guard(const Guard &) = delete;
		Guard & operator=(const Guard &) = delete;
	private:
		const MappedFile *	m_previous;
	};

private:
	/*! Called by the SIGBUS handler: true when address lies in the mapping, whose pages from
		there to the end are then replaced by zero pages.
	*/
	bool replaceLostPages(const void * address) const;
	/*! Reads the first size bytes of the open file fd into fresh read-only memory; MAP_FAILED
		(errno set) when that fails. cut tells whether the file held fewer bytes.
	*/
	static void * copy(int fd, std::uint64_t size, bool & cut);

	friend struct MappedFileSignals;

	char *						m_data = nullptr;
	std::uint64_t				m_size = 0;
	bool						m_copied = false;	///< read into memory, not mapped
	mutable std::atomic<bool>	m_cut{false};
};

} // namespace DATAIO

#endif // DATAIO_MappedFileH
