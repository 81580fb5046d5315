#include "KeyedArchiver.h"
#include "ManyNotes.h"
#include "NoteCopies.h"
#include <cstdint>
#include <cstdlib>

using namespace velmorath;

namespace {

// Nothing where the program would not take what was read for its list.
std::optional<Notes> read(std::string_view bytes)
{
    auto notes = archivedNotes(bytes);
    if (notes)
        return *notes;
    // An error says on one line what is wrong.
    if (notes.error().description.empty() || notes.error().description.find('\n') != std::string::npos)
        std::abort();
    return {};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ToDoItem2::enterInUnarchiver();
    auto notes = read({reinterpret_cast<const char*>(data), size});
    if (!notes)
        return 0;
    // What could be read is saved, and read again, and the same.
    auto again = read(KeyedArchiver::archivedData(*notes));
    if (!again || again->size() != notes->size())
        std::abort();
    for (std::size_t i = 0; i < notes->size(); ++i) {
        bool isFirst = (*notes)[i] == notes->front();
        if (*(*again)[i] != *(*notes)[i] || ((*again)[i] == again->front()) != isFirst)
            std::abort();
    }
    return 0;
}
