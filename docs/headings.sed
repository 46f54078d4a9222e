# SPDX-License-Identifier: BSL-1.0
# From comments that read well in a header to commands of Doxygen.
s,^/// ([A-Z][a-z]+( [a-z]+)?): (.*),/// @par \1\n/// \3,
s,^/// @snippet,/// @par Example\n&,
s,docs/conventions\.md,@ref md_docs_conventions "the conventions",
# What copies share is told in the class comment.
/^  [A-Za-z]+\(const [A-Za-z]+&( other)?\);$/d
/^  [A-Za-z]+& operator=\(const [A-Za-z]+&( other)?\);$/d
