# SPDX-License-Identifier: MIT
# What the reference site's generator is shown instead of a header: the macros of bound controls as
# what they stand for, and each comment at every member that it is about. Run by awk with
# -v bound=.../BoundParameter.h and the name of one header.

# Macros ------------------------------------------------------------------------------------------

function readMacros(    line, name) {
    while ((getline line < bound) > 0) {
        if (line ~ /^#define BOUND_/) {
            name = line
            sub(/^#define /, "", name)
            sub(/[ \\].*/, "", name)
            macro[name] = ""
        } else if (name != "") {
            body = line
            sub(/ *\\$/, "", body)
            macro[name] = macro[name] body "\n"
            if (line !~ /\\$/)
                name = ""
        }
    }
    close(bound)
}

# Each on lines of its own: comments as this filter knows them, signals under the heading of signals.
function expanded(name,    lines, count, i, text, word) {
    count = split(macro[name], lines, "\n")
    for (i = 1; i <= count; ++i) {
        if (sub(/\/\*\* /, "/// ", lines[i]))
            sub(/ *\*\/$/, "", lines[i])
        if (macro[name] ~ /Q_SIGNAL /)
            sub(/^public:/, "Q_SIGNALS:", lines[i])
        sub(/Q_(SIGNAL|SLOT) /, "", lines[i])
        word = lines[i]
        gsub(/ /, "", word)
        if (word in macro)
            text = text expanded(word)
        else
            text = text lines[i] "\n"
    }
    return text
}

# Members -----------------------------------------------------------------------------------------

# The name of the function or variable that the text declares, or "".
function declaredName(text) {
    if (text ~ /^    (friend|using|static_assert|enum|struct|class|Q_(OBJECT|ENUM))/)
        return ""
    if (text ~ /^    [A-Za-z_][^(]* [A-Za-z_]+;$/)
        sub(/;$/, "", text)
    else if (text ~ /^    [A-Za-z~].*\(/)
        sub(/\(.*/, "", text)
    else
        return ""
    sub(/.*[ *&]/, "", text)
    return text
}

# What the names of a getter, its setter and their like have in common.
function stem(name) {
    sub(/^disconnect/, "connect", name)
    sub(/^(set|clear|reset|is|has)/, "", name)
    return tolower(name)
}

function word(text, after) {
    if (!match(text, after " +[A-Za-z_0-9]+"))
        return ""
    text = substr(text, RSTART, RLENGTH)
    sub(/.* /, "", text)
    return text
}

# The text without the name and what its arguments are called.
function types(text, name) {
    sub(/ *(\{.*|;.*| = 0;.*)$/, "", text)
    sub(name "(\\(|$)", "(", text)
    gsub(/ = [^,)]*/, "", text)
    gsub(/[*&][A-Za-z_0-9]+/, "*", text)
    gsub(/ [A-Za-z_0-9]+,/, ",", text)
    gsub(/ [A-Za-z_0-9]+\)/, ")", text)
    return text
}

# The comment of a member that has none of its own: the property's that it reads or writes, or that of
# the member right above it, where both do their work on the same.
function borrowed(name, text) {
    if (name in ofAccessor)
        return ofAccessor[name]
    if (name == className && text ~ /\(QWidget \*parent = nullptr, const char \*name = nullptr\)/)
        return "    /// Inert until a memory binds it. `name` becomes the object name.\n"
    if (lastComment != "" && (stem(name) == stem(lastName) || types(text, name) == lastTypes)) {
        if (review)
            print FILENAME ": " lastName " -> " name ": " lastComment > "/dev/stderr"
        return lastComment
    }
    lastComment = ""
    return ""
}

# A comment stands at its property and at the functions that read and write it.
function takeProperty(text) {
    if (comment == "" && lastComment != "") {
        comment = lastComment
        printf "%s", comment
    }
    ofAccessor[word(text, "READ")] = comment
    ofAccessor[word(text, "WRITE")] = comment
    lastComment = comment
    lastName = ""
}

# Puts what the member needs in front of it; returns whether it is shown.
function takeMember(text,    name) {
    if (text ~ /^    Q_PROPERTY\(/) {
        takeProperty(text)
        return 1
    }
    # An override that has nothing to add is told where it comes from.
    if (comment == "" && text ~ /\) (const )?(noexcept )?override/)
        return 0
    name = declaredName(text)
    if (name == "")
        lastComment = ""
    else if (comment == "")
        printf "%s", borrowed(name, text)
    else {
        lastComment = comment
        lastName = name
        lastTypes = types(text, name)
    }
    return 1
}

# Lines -------------------------------------------------------------------------------------------

function take(line) {
    if (hidingBody) {
        hidingBody = line !~ /^    }/
        return
    }
    if (member == "" && line ~ /^ *\/\/\/([^<]|$)/) {
        comment = comment line "\n"
        print line
        return
    }
    if (member == "" && line !~ /^    [A-Za-z~]/) {
        if (line ~ /^(class|struct) .*[^;]$/)
            className = classNamed(line)
        if (line !~ /^     /)
            comment = lastComment = ""
        print line
        return
    }
    member = member == "" ? line : member "\n" line
    if (line ~ /^    Q_[A-Z_]+$/ || line ~ /[;{}:)]$/ || line ~ /\/\/\/</ || line ~ /(const|override|noexcept)$/)
        finishMember(line)
}

function finishMember(line,    flat, shown) {
    flat = member
    gsub(/\n */, " ", flat)
    shown = takeMember(flat)
    if (shown)
        print member
    else
        hidingBody = flat ~ /(override|\{)$/
    comment = member = ""
}

function classNamed(text) {
    sub(/^(class|struct) ([A-Z_]+_EXPORT )?/, "", text)
    sub(/[ :].*/, "", text)
    return text
}

BEGIN {
    readMacros()
    # What stands outside of classes is shown of documented files only.
    print "/** @file */"
}

{
    name = $0
    gsub(/ /, "", name)
    if (FILENAME == bound || !(name in macro)) {
        take($0)
        next
    }
    count = split(expanded(name), lines, "\n")
    for (n = 1; n <= count; ++n)
        take(lines[n])
}

END {
    if (member != "")
        print member
}
