#include "DATAIO_AsciiLineStore.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include <ZEB_Exception.h>

#include "DATAIO_MemoryAdvice.h"

namespace DATAIO {

namespace {

/*! Size of a new block. Blocks above the C library's largest dynamic mmap threshold (32 MB) are
	always mapped separately, so that freeing one really returns its memory to the system.
*/
const std::size_t BLOCK_SIZE = std::size_t(64) << 20;

} // namespace


void AsciiLineStore::FreeDeleter::operator()(char * p) const {
	std::free(p);
}


void AsciiLineStore::clear() {
	m_blocks.clear();
	m_lineEnd.clear();
	m_lineEnd.shrink_to_fit();
}


void AsciiLineStore::append(const char * begin, const char * end) {
	FUNCID(AsciiLineStore::append);
	const std::size_t len = static_cast<std::size_t>(end - begin);
	if (len > UINT32_MAX)
		throw ZEB::Exception("Data line longer than 4 GB.", FUNC_ID);
	Block * last = m_blocks.empty() || m_blocks.back().m_text == nullptr ? nullptr : &m_blocks.back();
	if (last != nullptr && last->m_capacity - last->m_used < len) {
		if (last->m_used + len <= BLOCK_SIZE) {
			// a block given back after an earlier read grows again (lines are kept as offsets, so
			// it may move), instead of starting a new block for every few lines of a growing file
			const std::size_t capacity = std::min(BLOCK_SIZE, std::max(last->m_used + len, 2*last->m_capacity));
			char * p = static_cast<char*>(std::realloc(last->m_text.get(), capacity));
			if (p == nullptr)
				throw std::bad_alloc();
			last->m_text.release();
			last->m_text.reset(p);
			last->m_capacity = capacity;
			MemoryAdvice::useHugePages(p, capacity);
		}
		else {
			shrinkLastBlock();
			last = nullptr;
		}
	}
	if (last == nullptr) {
		Block b;
		b.m_firstLine = m_lineEnd.size();
		b.m_capacity = std::max(BLOCK_SIZE, len);
		b.m_text.reset(static_cast<char*>(std::malloc(b.m_capacity)));
		if (b.m_text == nullptr)
			throw std::bad_alloc();
		MemoryAdvice::useHugePages(b.m_text.get(), b.m_capacity);
		m_blocks.push_back(std::move(b));
		last = &m_blocks.back();
	}
	std::memcpy(last->m_text.get() + last->m_used, begin, len);
	last->m_used += len;
	++last->m_held;
	m_lineEnd.push_back(static_cast<std::uint32_t>(last->m_used));
}


void AsciiLineStore::reserveLines(std::size_t count) {
	m_lineEnd.reserve(m_lineEnd.size() + count);
}


void AsciiLineStore::shrinkLastBlock() {
	if (m_blocks.empty())
		return;
	Block & b = m_blocks.back();
	if (b.m_text == nullptr || b.m_used == b.m_capacity || b.m_used == 0)
		return;
	char * p = static_cast<char*>(std::realloc(b.m_text.get(), b.m_used));
	if (p != nullptr) {
		b.m_text.release();
		b.m_text.reset(p);
		b.m_capacity = b.m_used;
	}
}


void AsciiLineStore::truncate(std::size_t count) {
	if (count >= m_lineEnd.size())
		return;
	std::size_t rangeEnd = m_lineEnd.size();	// end of the line range of the last kept block
	while (!m_blocks.empty() && m_blocks.back().m_firstLine >= count) {
		rangeEnd = m_blocks.back().m_firstLine;
		m_blocks.pop_back();
	}
	if (!m_blocks.empty()) {
		Block & b = m_blocks.back();
		b.m_held -= rangeEnd - count;
		b.m_used = m_lineEnd[count - 1];
	}
	m_lineEnd.resize(count);
}


void AsciiLineStore::removeLast(bool released) {
	Block & b = m_blocks.back();
	m_lineEnd.pop_back();
	if (m_lineEnd.size() == b.m_firstLine) {
		m_blocks.pop_back();
		return;
	}
	if (!released && --b.m_held == 0) {
		b.m_text.reset();
		b.m_capacity = 0;
	}
	if (b.m_text != nullptr)
		b.m_used = m_lineEnd.back();
}


std::size_t AsciiLineStore::blockOf(std::size_t index) const {
	std::vector<Block>::const_iterator it = std::upper_bound(m_blocks.begin(), m_blocks.end(), index,
		[](std::size_t i, const Block & b) { return i < b.m_firstLine; });
	return static_cast<std::size_t>(it - m_blocks.begin()) - 1;
}


void AsciiLineStore::line(std::size_t index, const char *& begin, const char *& end) const {
	const Block & b = m_blocks[blockOf(index)];
	const std::uint32_t start = index == b.m_firstLine ? 0 : m_lineEnd[index - 1];
	begin = b.m_text.get() + start;
	end = b.m_text.get() + m_lineEnd[index];
}


void AsciiLineStore::release(std::size_t index) {
	Block & b = m_blocks[blockOf(index)];
	if (--b.m_held == 0) {
		b.m_text.reset();
		b.m_capacity = 0;
	}
}

} // namespace DATAIO
