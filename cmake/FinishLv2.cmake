# Completes the turtle files that JUCE's wrapper has written for the LV2 bundle:
#
#   cmake -D BUNDLE=... -D URI=... -D SITE=... -D VERSION=... -P FinishLv2.cmake
#
# JUCE knows neither the class of an analyser nor licence and project. It describes the only program of the plug-in as a
# preset without a name, which would do nothing, and a missing address for mail as one that is the file itself. It uses
# some words of LV2 for things that they do not apply to, which validators count as errors: properties of ports for
# parameters, whose named values are listed anyway, a feature as an extension and the other way round. Every text that is
# replaced must be there, so that a change in JUCE does not pass unseen.
cmake_minimum_required (VERSION 3.25)

function (replace_text variable from to)
    string (FIND "${${variable}}" "${from}" position)

    if (position EQUAL -1)
        message (FATAL_ERROR "The turtle files of ${BUNDLE} lack: ${from}")
    endif()

    string (REPLACE "${from}" "${to}" replaced "${${variable}}")
    set (${variable} "${replaced}" PARENT_SCOPE)
endfunction()

# LV2 takes odd numbers for unfinished versions, so both numbers are doubled.
string (REGEX MATCH "^[0-9]+\\.([0-9]+)\\.([0-9]+)$" matched "${VERSION}")
set (minor "${CMAKE_MATCH_1}")
set (micro "${CMAKE_MATCH_2}")
math (EXPR even_minor "2 * ${minor}")
math (EXPR even_micro "2 * ${micro}")

set (class "\ta lv2:Plugin ;\n")
set (analyser "\ta lv2:Plugin , lv2:AnalyserPlugin , doap:Project ;\n")
set (licence "https://spdx.org/licenses/AGPL-3.0-or-later.html")

file (READ "${BUNDLE}/manifest.ttl" manifest)
replace_text (manifest "${class}" "\ta lv2:Plugin , lv2:AnalyserPlugin ;\n")
replace_text (manifest "<${URI}:preset1>
\ta pset:Preset ;
\tlv2:appliesTo <${URI}> ;
\trdfs:label \"\" ;
\tstate:state [ <${URI}:Program> \"0\"^^xsd:int ; ] .

" "")
file (WRITE "${BUNDLE}/manifest.ttl" "${manifest}")

file (READ "${BUNDLE}/dsp.ttl" dsp)
replace_text (dsp "${class}" "${analyser}\tdoap:license <${licence}> ;\n\tlv2:project <${URI}:project> ;\n")
replace_text (dsp "\t\tfoaf:mbox <> ;\n" "")
replace_text (dsp "\tlv2:minorVersion ${minor} ;\n" "\tlv2:minorVersion ${even_minor} ;\n")
replace_text (dsp "\tlv2:microVersion ${micro} ;\n" "\tlv2:microVersion ${even_micro} ;\n")
replace_text (dsp ", lv2:toggled ;\n" ";\n")
replace_text (dsp "\tlv2:portProperty lv2:enumeration ;\n" "")
string (APPEND dsp "
<${URI}:project>
\ta doap:Project ;
\tdoap:name \"Orlo\" ;
\tdoap:homepage <${SITE}> ;
\tdoap:license <${licence}> .
")
file (WRITE "${BUNDLE}/dsp.ttl" "${dsp}")

file (READ "${BUNDLE}/ui.ttl" ui)
replace_text (ui "\t\tui:noUserResize ,\n\t\tui:resize ;\n" "\t\tui:resize ;\n")
replace_text (ui "\t\topts:interface ,\n\t\topts:options ;\n" "\t\topts:options ;\n")
file (WRITE "${BUNDLE}/ui.ttl" "${ui}")
