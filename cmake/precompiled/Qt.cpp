// SPDX-License-Identifier: GPL-3.0-or-later
// Empty: the precompiled header that other targets use must belong to a target with a source.
