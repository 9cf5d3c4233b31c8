// The program's own heap.
#pragma once

namespace wbhost {

// Gives the heap room for a large schema, in large pages where the system has them: it grows a page
// at a time otherwise, and the system's answer to each takes a tenth of an import's time. Takes
// addresses, no memory: that comes when it is written to. Does nothing where there is no room.
void MakeRoomInHeap();

}  // namespace wbhost
