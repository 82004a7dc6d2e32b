#include "inventory/BaseBoard.h"
#include "provider/ClassNames.h"
#include "provider/Mappings.h"
#include "provider/PropertyTable.h"

#include <utility>

namespace VQ
{

namespace
{
// A board with the configuration options, which are the whole system's: one list, which all boards share.
struct Board : BaseBoard
{
    Pegasus::Array<Pegasus::String> options;
};
}

void deliverBaseBoards(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    static const PropertyTable<Board> table = {
        BaseBoardClass,
        {
            {"Caption", "Base Board"},
            {"Description", "Base Board"},
            {"Status", "Unknown"},
            {"CreationClassName", BaseBoardClass, TextKey},
            {"Manufacturer", &Board::getManufacturer},
            {"SerialNumber", &Board::getSerialNumber},
            {"Tag", [](const Board&, const Request& request) { return numbered("BaseBoard", request); }, TextKey},
            {"Version", &Board::getVersion},
            {"LocationInChassis", &Board::getLocation},
            {"ConfigOptions", &Board::options},
        },
    };
    Pegasus::Array<Pegasus::String> options;
    cimValue(getConfigurationOptions()).get(options);
    Request request(requestedClass);
    for (BaseBoard& board : GetBaseBoardInstances()) {
        table.deliver(Board{std::move(board), options}, request, handler);
        ++request.index;
    }
}

}
