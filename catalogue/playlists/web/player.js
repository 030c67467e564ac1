// SPDX-License-Identifier: GPL-3.0-or-later
// Plays the songs of the page one after another. A song that cannot be played is marked and passed over.
'use strict';

(() => {
  const songs = [...document.querySelectorAll('button.song')];
  if (songs.length === 0)
    return;

  const audio = new Audio();
  audio.preload = 'none';
  const part = (id) => document.getElementById(id);
  const position = part('position');
  const list = document.querySelector('.songs');
  const pageTitle = document.title;
  let current = -1;
  let failures = 0; // in a row

  const text = (song, kind) => song.querySelector(`.${kind} bdi`)?.textContent ?? '';
  const line = (song) => [text(song, 'title'), text(song, 'artist')].filter(Boolean).join(' – ');

  function clock(seconds) {
    if (!Number.isFinite(seconds))
      return '–:––';
    const whole = Math.floor(seconds);
    const two = (number) => String(number).padStart(2, '0');
    const hours = Math.floor(whole / 3600);
    const minutes = Math.floor(whole / 60) % 60;
    return hours > 0 ? `${hours}:${two(minutes)}:${two(whole % 60)}` : `${minutes}:${two(whole % 60)}`;
  }

  function showState() {
    const playing = !audio.paused;
    list.classList.toggle('playing', playing);
    part('player').classList.toggle('playing', playing);
    part('play').setAttribute('aria-label', playing ? 'Pause' : 'Play');
    document.title = playing && current >= 0 ? `▶ ${line(songs[current])}` : pageTitle;
  }

  function showTime() {
    const known = Number.isFinite(audio.duration);
    position.max = known ? Math.ceil(audio.duration) : 0;
    position.disabled = !known;
    position.value = audio.currentTime;
    position.setAttribute('aria-valuetext', `${clock(audio.currentTime)} of ${clock(audio.duration)}`);
    part('elapsed').textContent = clock(audio.currentTime);
    part('total').textContent = clock(audio.duration);
  }

  function select(index) {
    if (current >= 0)
      songs[current].removeAttribute('aria-current');
    current = index;
    const song = songs[index];
    song.setAttribute('aria-current', 'true');
    part('now').textContent = line(song);
    audio.src = song.dataset.location;
    if ('mediaSession' in navigator)
      navigator.mediaSession.metadata = new MediaMetadata({title: text(song, 'title'), artist: text(song, 'artist')});
    showTime();
  }

  function start() {
    audio.play().catch(() => { /* the error event tells what the user is to know */ });
  }

  function play(index) {
    select(index);
    part('told').textContent = `Playing ${line(songs[index])}`;
    start();
  }

  function step(distance) {
    const next = current + distance;
    if (next >= 0 && next < songs.length)
      play(next);
  }

  function toggle() {
    if (!audio.paused)
      audio.pause();
    else if (current < 0 || audio.error)
      play(Math.max(current, 0));
    else
      start();
  }

  songs.forEach((song, index) => song.addEventListener('click', () => {
    failures = 0;
    if (index === current && !audio.error)
      toggle();
    else
      play(index);
  }));
  part('play').addEventListener('click', () => {
    failures = 0;
    toggle();
  });
  part('previous').addEventListener('click', () => {
    if (audio.currentTime > 3 || current <= 0)
      audio.currentTime = 0;
    else
      step(-1);
  });
  part('next').addEventListener('click', () => step(1));
  position.addEventListener('input', () => { audio.currentTime = Number(position.value); });

  audio.addEventListener('play', showState);
  audio.addEventListener('pause', showState);
  audio.addEventListener('timeupdate', showTime);
  audio.addEventListener('durationchange', showTime);
  audio.addEventListener('playing', () => {
    failures = 0;
    songs[current].querySelector('.note').hidden = true;
  });
  audio.addEventListener('ended', () => {
    if (current + 1 < songs.length)
      step(1);
    else
      showState();
  });
  audio.addEventListener('error', () => {
    songs[current].querySelector('.note').hidden = false;
    part('told').textContent = `${line(songs[current])} cannot be played`;
    failures += 1;
    if (failures < songs.length && current + 1 < songs.length)
      step(1);
    else
      showState();
  });

  if ('mediaSession' in navigator) {
    navigator.mediaSession.setActionHandler('previoustrack', () => step(-1));
    navigator.mediaSession.setActionHandler('nexttrack', () => step(1));
  }
  part('player').hidden = false;
  select(0);
})();
