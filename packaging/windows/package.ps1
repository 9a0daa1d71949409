# SPDX-License-Identifier: AGPL-3.0-or-later
# Makes the installer for Windows from build/windows. With ORLO_SIGNING_CERTIFICATE (a base64 PKCS #12 file) and
# ORLO_SIGNING_PASSWORD the programs and the installer are signed, otherwise not.
$ErrorActionPreference = "Stop"
$PSNativeCommandUseErrorActionPreference = $true
Set-Location (Join-Path $PSScriptRoot "../..")

function Add-Signature ($files) {
    if (-not $env:ORLO_SIGNING_CERTIFICATE) { return }
    $certificate = New-TemporaryFile
    try {
        [IO.File]::WriteAllBytes($certificate, [Convert]::FromBase64String($env:ORLO_SIGNING_CERTIFICATE))
        $signtool = Get-ChildItem "${env:ProgramFiles(x86)}/Windows Kits/10/bin/*/x64/signtool.exe" | Select-Object -Last 1
        & $signtool sign /f $certificate /p $env:ORLO_SIGNING_PASSWORD /fd SHA256 /tr http://timestamp.digicert.com /td SHA256 $files
    }
    finally { Remove-Item $certificate }
}

$built = "build/windows/orlo/Orlo_artefacts/Release"
Add-Signature @("$built/VST3/Orlo.vst3/Contents/x86_64-win/Orlo.vst3", "$built/Standalone/Orlo.exe")
Push-Location build/windows
try { cpack -C Release -G NSIS } finally { Pop-Location }
Add-Signature @((Get-ChildItem build/windows/packages/*.exe).FullName)
