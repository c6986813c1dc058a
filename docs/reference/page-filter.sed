# SPDX-License-Identifier: MIT
# The site has the pages but not the files beside them: links to those become their names.
s/\[\([^]]*\)\](\.\.\/[^)]*\.\(ui\|h\))/`\1`/g
