# SPDX-License-Identifier: MIT
# The README's example is the program that is built: fails when they differ.
file(READ ${SOURCE}/README.md readme)
file(READ ${SOURCE}/examples/bind-a-dial/main.cpp example)
string(FIND "${readme}" "```cpp\n${example}```" found)
if(found LESS 0)
    message(FATAL_ERROR "README.md does not show examples/bind-a-dial/main.cpp as it is.")
endif()
