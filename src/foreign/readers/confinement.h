// What the reading program gives up before it looks at a file that may be made to fool it.
#pragma once

namespace tolmer {

// From now on this process has 512 MiB of memory and 5 s of the processor, makes no file, starts no
// process, opens nothing and talks to nobody; it ends with the one that started it. False where the
// system allows one of these not to be given up. Under the sanitizers memory and calls stay free.
bool confineProcess();

}  // namespace tolmer
