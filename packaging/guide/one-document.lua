-- SPDX-License-Identifier: GPL-3.0-or-later
-- Documents that become one: a link to another of them leads to its heading instead of its file.
local headings = {
  ["user-guide.md"] = "user-guide",
  ["timing.md"] = "when-sounds-come-and-how-well",
  ["glossary.md"] = "glossary",
}

function Link(link)
  local file, anchor = link.target:match("^([^#]*)#?(.*)$")
  if headings[file] then
    link.target = "#" .. (anchor ~= "" and anchor or headings[file])
  end
  return link
end
