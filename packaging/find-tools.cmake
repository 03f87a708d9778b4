# SPDX-FileCopyrightText: The Obelmark developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Before CPack begins: without dpkg-shlibdeps it would make a package that depends on no library, and only say so.
find_program(SHLIBDEPS dpkg-shlibdeps REQUIRED)
