# SPDX-License-Identifier: AGPL-3.0-or-later
# Renders the picture of a second of silence with the renderer in build/windows, which runs the whole analysis.
$ErrorActionPreference = "Stop"
$PSNativeCommandUseErrorActionPreference = $true
Set-Location (Join-Path $PSScriptRoot "../..")

# A WAV file: one channel of 16 bits at 44.1 kHz.
$samples = 44100
$stream = [IO.MemoryStream]::new()
$writer = [IO.BinaryWriter]::new($stream)
$writer.Write([Text.Encoding]::ASCII.GetBytes("RIFF")); $writer.Write([int] (36 + 2 * $samples))
$writer.Write([Text.Encoding]::ASCII.GetBytes("WAVEfmt ")); $writer.Write([int] 16)
$writer.Write([int16] 1); $writer.Write([int16] 1); $writer.Write([int] 44100); $writer.Write([int] 88200)
$writer.Write([int16] 2); $writer.Write([int16] 16)
$writer.Write([Text.Encoding]::ASCII.GetBytes("data")); $writer.Write([int] (2 * $samples))
$writer.Write([byte[]]::new(2 * $samples))
[IO.File]::WriteAllBytes("$PWD/build/silence.wav", $stream.ToArray())

$renderer = Get-ChildItem build/windows/tools/orlo-render -Recurse -Filter orlo-render.exe | Select-Object -First 1
& $renderer.FullName build/silence.wav build/silence.png
if (-not (Test-Path build/silence.png)) { throw "there is no picture" }
