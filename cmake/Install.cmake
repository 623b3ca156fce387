# Installing: the two programs, the desktop entry, the AppStream metadata, the icon in the hicolor
# theme and the manual pages, in the GNU layout under any prefix; and the Debian package CPack
# builds from the same rules (scripts/package). The programs read nothing of the build or source
# tree at run time: their texts and the icon are built in, Qt's translations and the sound font
# come from the system.
include(GNUInstallDirs)

set(ZV_APP_ID "br.com.zavrello.Zavrello")
set(ZV_DATA "${PROJECT_SOURCE_DIR}/data")

# zv_install_gzipped(FILE DESTINATION): installs FILE compressed as Debian wants manual pages and
# changelogs, at maximum compression and without a time stamp, so every build gives the same bytes.
find_program(ZV_GZIP gzip REQUIRED)
add_custom_target(zavrello_gzipped ALL)
function(zv_install_gzipped file destination)
    get_filename_component(name "${file}" NAME)
    set(out "${CMAKE_CURRENT_BINARY_DIR}/gzipped/${name}.gz")
    add_custom_command(OUTPUT "${out}"
                       COMMAND ${CMAKE_COMMAND} -E make_directory "${CMAKE_CURRENT_BINARY_DIR}/gzipped"
                       COMMAND "${ZV_GZIP}" -9 -n -c "${file}" > "${out}"
                       DEPENDS "${file}" VERBATIM)
    add_custom_target(zavrello_gzip_${name} DEPENDS "${out}")
    add_dependencies(zavrello_gzipped zavrello_gzip_${name})
    install(FILES "${out}" DESTINATION "${destination}")
endfunction()

install(TARGETS zavrello-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
zv_install_gzipped("${ZV_DATA}/zavrello-cli.1" ${CMAKE_INSTALL_MANDIR}/man1)
if(ZV_BUILD_APP)
    install(TARGETS zavrello RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    zv_install_gzipped("${ZV_DATA}/zavrello.1" ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES "${ZV_DATA}/${ZV_APP_ID}.desktop" DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    install(FILES "${ZV_DATA}/${ZV_APP_ID}.metainfo.xml" DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
    install(DIRECTORY "${ZV_DATA}/icons/hicolor" DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
endif()

# The documentation folder: the copyright and the changelog, as every Debian package has them.
zv_install_gzipped("${ZV_DATA}/changelog" ${CMAKE_INSTALL_DATADIR}/doc/zavrello)
install(FILES "${ZV_DATA}/copyright" DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/zavrello)

# The Debian package.
set(CPACK_GENERATOR "DEB")
set(CPACK_PACKAGE_NAME "zavrello")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "Zavrello <suporte@zavrello.com.br>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "printing adding machine with a paper tape")
# The summary above is the synopsis line; this is the text under it (one string: a CMake list
# would join its lines with ";").
string(CONCAT CPACK_DEBIAN_PACKAGE_DESCRIPTION
       "Type an amount and press an operator: the amount is printed on a paper tape\n"
       "with the operator's sign and the running total follows the tape. The tape is\n"
       "kept on disk line by line, can be undone and redone, searched, edited, saved\n"
       "and printed, and is backed up whenever it is cleared. Office tools: amounts in\n"
       "Portuguese words, a date calculator, the rule of three and a weights-and-\n"
       "measures converter. Portuguese, English and Spanish.\n"
       ".\n"
       "zavrello-cli gives the same calculations on the command line.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION "utils")
set(CPACK_DEBIAN_PACKAGE_PRIORITY "optional")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://www.zavrello.com.br")
# The libraries the programs link come from dpkg-shlibdeps. The rest is loaded at run time and
# no linker sees it: the key sounds' synthesizer (opened when musical sound is first wanted) and
# a General MIDI sound font, Qt's own texts in Portuguese and Spanish, and Qt's X11 and Wayland
# platform plugins, without which the window cannot open.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "libfluidsynth3, timgm6mb-soundfont | sf2-soundfont-gm, qt6-translations-l10n, qt6-qpa-plugins, fonts-liberation")
set(CPACK_STRIP_FILES ON)
# Control files with the owners and modes Debian wants (lintian checks them).
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
