# Run by "cmake --install": an install into a system prefix (/opt/..., /usr/...) also puts in place
# what lets the client reach its privileged program and LightDM find our session: the privileged
# program itself apart from the program folder, the sudoers drop-in for the administrators group,
# the X session file, and the group itself (a sysusers.d entry, and the group made at once when
# installing into the running system as root). An install into any other folder (a demo or test
# copy of the program folder) leaves the system alone.
set(prefix "${CMAKE_INSTALL_PREFIX}")
if(NOT prefix MATCHES "^/(opt|usr)(/|$)")
  message(STATUS "Not a system prefix (${prefix}): sudoers drop-in, X session and group skipped")
  return()
endif()
# The prefix stands unquoted in the session's command line, which a shell reads.
if(NOT prefix MATCHES "^[A-Za-z0-9/._-]+$")
  message(FATAL_ERROR "The prefix '${prefix}' holds characters the session's command line cannot "
                      "take as they are: install into a folder named with letters, digits, '/', "
                      "'.', '_' or '-'")
endif()
set(root "$ENV{DESTDIR}")

# sudo refuses to run at all while a file of sudoers.d cannot be read: the drop-in is written
# beside (a name with a dot, which sudo passes over), checked, and only then put in its place.
file(READ "${TK_SUDOERS_TEMPLATE}" sudoers)
file(MAKE_DIRECTORY "${root}/etc/sudoers.d")
set(nieuw "${root}/etc/sudoers.d/tafelkrater.nieuw")
file(WRITE "${nieuw}" "${sudoers}")
file(CHMOD "${nieuw}" PERMISSIONS OWNER_READ GROUP_READ)
find_program(visudo visudo PATHS /usr/sbin /sbin)
if(visudo)
  execute_process(COMMAND "${visudo}" -c -q -f "${nieuw}" RESULT_VARIABLE goed)
  if(NOT goed EQUAL 0)
    file(REMOVE "${nieuw}")
    message(FATAL_ERROR "visudo finds the sudoers drop-in for '${prefix}' wrong; nothing installed")
  endif()
endif()
file(RENAME "${nieuw}" "${root}/etc/sudoers.d/tafelkrater")
message(STATUS "Installing: ${root}/etc/sudoers.d/tafelkrater")

# The privileged program runs as root, so it lies where only root writes: not in the program
# folder, which the workstation's accounts write into (their data, store and log book), where it
# could be replaced. Beside it the program folder it serves, whose launcher its session starts.
set(libexec "${root}/usr/libexec/tafelkrater")
file(MAKE_DIRECTORY "${libexec}")
file(RENAME "${root}${prefix}/tafelkrater-systeem" "${libexec}/tafelkrater-systeem")
file(WRITE "${libexec}/programmamap" "${prefix}\n")
message(STATUS "Installing: ${libexec}/tafelkrater-systeem (moved out of the program folder)")

# The same text as "tafelkrater-systeem session-install" writes (SystemTool::sessionFile).
file(MAKE_DIRECTORY "${root}/usr/share/xsessions")
file(WRITE "${root}/usr/share/xsessions/tafelkrater.desktop"
  "[Desktop Entry]\nType=Application\nName=Tafelkrater\nComment=The Tafelkrater workstation\n"
  "Exec=/bin/sh -c \"openbox & exec ${prefix}/tafelkrater-startup\"\n")
message(STATUS "Installing: ${root}/usr/share/xsessions/tafelkrater.desktop")

file(MAKE_DIRECTORY "${root}/usr/lib/sysusers.d")
file(WRITE "${root}/usr/lib/sysusers.d/tafelkrater.conf"
  "# The administrators of the Tafelkrater workstation: they may run tafelkrater-systeem.\n"
  "g tafelkrater-beheer -\n")
message(STATUS "Installing: ${root}/usr/lib/sysusers.d/tafelkrater.conf")
if(root STREQUAL "")
  execute_process(COMMAND groupadd -f tafelkrater-beheer RESULT_VARIABLE made)
  if(NOT made EQUAL 0)
    message(WARNING "The group tafelkrater-beheer could not be made (install as root)")
  endif()
endif()
