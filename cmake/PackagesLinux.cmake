# The packages for Debian and RPM, and the archive; see Packages.cmake.
set (CPACK_GENERATOR DEB RPM TGZ)

set (description "Orlo paints frequency against time while a sound plays, sharply and fast: in
Enhanced mode every point is moved to where its energy lies, so that a steady
tone is a thin line and a click a thin vertical one. Five frequency scales, 46
colour maps and presets; a pointer reads frequency, note and cents.")
set (orlo_description "${description}

This package contains the plug-in as VST3 and LV2, the program orlo
and the manual.")
set (tools_description "${description}

This package contains orlo-render, which turns audio files into pictures, and
orlo-host, which plays audio through the plug-in.")

# JUCE loads the libraries of X11 while it runs, so that no tool finds them.
set (x11_packages "libx11-6, libxcursor1, libxext6, libxinerama1, libxrandr2, libxrender1")
string (CONCAT x11_libraries
    "libX11.so.6()(64bit), libXcursor.so.1()(64bit), libXext.so.6()(64bit), libXinerama.so.1()(64bit), "
    "libXrandr.so.2()(64bit), libXrender.so.1()(64bit)")

#---------------------------------------------------------------------------------------------------
set (CPACK_DEB_COMPONENT_INSTALL ON)
set (CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set (CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set (CPACK_DEBIAN_PACKAGE_SECTION sound)
set (CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set (CPACK_DEBIAN_COMPRESSION_TYPE xz)
set (CPACK_DEBIAN_ORLO_PACKAGE_NAME orlo)
set (CPACK_DEBIAN_ORLO_DESCRIPTION "real-time spectrogram, as plug-in and program\n${orlo_description}")
set (CPACK_DEBIAN_ORLO_PACKAGE_DEPENDS "${x11_packages}")
set (CPACK_DEBIAN_ORLO_PACKAGE_RECOMMENDS "libcurl4") # the update check
set (CPACK_DEBIAN_TOOLS_PACKAGE_NAME orlo-tools)
set (CPACK_DEBIAN_TOOLS_DESCRIPTION "pictures of spectrograms from the command line\n${tools_description}")
set (CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "orlo (= ${PROJECT_VERSION}), ${x11_packages}")

#---------------------------------------------------------------------------------------------------
set (CPACK_RPM_COMPONENT_INSTALL ON)
set (CPACK_RPM_MAIN_COMPONENT orlo)
set (CPACK_RPM_FILE_NAME RPM-DEFAULT)
set (CPACK_RPM_PACKAGE_LICENSE "AGPL-3.0-or-later")
set (CPACK_RPM_PACKAGE_URL "${ORLO_VENDOR_SITE}")
set (CPACK_RPM_PACKAGE_AUTOREQPROV ON)
set (CPACK_RPM_ORLO_PACKAGE_NAME orlo)
set (CPACK_RPM_ORLO_PACKAGE_REQUIRES "${x11_libraries}")
set (CPACK_RPM_ORLO_PACKAGE_DESCRIPTION "${orlo_description}")
set (CPACK_RPM_ORLO_PACKAGE_SUMMARY "Real-time spectrogram, as plug-in and program")
set (CPACK_RPM_TOOLS_PACKAGE_NAME orlo-tools)
set (CPACK_RPM_TOOLS_PACKAGE_DESCRIPTION "${tools_description}")
set (CPACK_RPM_TOOLS_PACKAGE_SUMMARY "Pictures of spectrograms from the command line")
set (CPACK_RPM_TOOLS_PACKAGE_REQUIRES "orlo = ${PROJECT_VERSION}, ${x11_libraries}")

# Folders that belong to the system.
set (CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION
    /usr/lib/vst3 /usr/lib/lv2 /usr/share/applications /usr/share/doc /usr/share/icons /usr/share/icons/hicolor
    /usr/share/icons/hicolor/scalable /usr/share/icons/hicolor/scalable/apps /usr/share/man
    /usr/share/man/man1 /usr/share/metainfo)

foreach (size IN ITEMS 16 22 24 32 48 64 128 256 512)
    list (APPEND CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION
        "/usr/share/icons/hicolor/${size}x${size}" "/usr/share/icons/hicolor/${size}x${size}/apps")
endforeach()

set (CPACK_RPM_SPEC_MORE_DEFINE "
%define _build_id_links none
%define _buildhost localhost
%define packager Morlek <orlo@morlek.example>
%define use_source_date_epoch_as_buildtime 1
%define clamp_mtime_to_source_date_epoch 1")

#---------------------------------------------------------------------------------------------------
set (CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set (CPACK_ARCHIVE_FILE_NAME "orlo-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR}")
